#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, motion picture.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kMotionPictureSMD[] = {
    "Specific material designation (motion picture)",
    "c\nFilm cartridge\n",
    "f\nFilm cassette\n",
    "r\nFilm reel\n",
    "o\nFilm roll\n",
    "z\nOther\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kMotionPictureColor[] = {
    "Color (motion picture)",
    "b\nBlack-and-white\n",
    "h\nHand colored\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPicturePresentationFormat[] = {
    "Motion picture presentation format",
    "c\n3D\n",
    "d\nAnamorphic (wide-screen)\n",
    "b\nNonanamorphic (wide-screen)\n",
    "z\nOther\n",
    "e\nOther wide-screen format\n",
    "f\nStandard silent aperture (full frame)\n",
    "a\nStandard sound aperture (reduced frame)\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureSoundOnMedium[] = {
    "Sound on medium or separate (motion picture)",
    " \nNo sound (silent)\n",
    "a\nSound on medium\n",
    "b\nSound separate from medium\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureMediumOfSound[] = {
    "Medium of sound (motion picture)",
    "c\nMagnetic audio tape in cartridge\n",
    "f\nMagnetic audio tape in cassette\n",
    "e\nMagnetic audio tape on reel\n",
    "b\nMagnetic sound track on motion picture film\n",
    " \nNo sound (silent)\n",
    "g\nOptical and magnetic sound track on motion picture film\n",
    "a\nOptical sound track on motion picture film\n",
    "z\nOther\n",
    "d\nSound disc\n",
    "u\nUnknown\n",
    "i\nVideodisc\n",
    "h\nVideotape\n",
    nullptr,
};

inline constexpr const char* kMotionPictureDimensions[] = {
    "Dimensions (motion picture)",
    "d\n16 mm.\n",
    "e\n28 mm.\n",
    "f\n35 mm.\n",
    "g\n70 mm.\n",
    "c\n9.5 mm.\n",
    "z\nOther\n",
    "a\nStandard 8 mm.\n",
    "b\nSuper 8 mm./single 8 mm.\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPicturePlaybackChannels[] = {
    "Configuration of playback channels (motion picture)",
    "k\nMixed\n",
    "m\nMonaural\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "q\nQuadraphonic, multichannel, or surround\n",
    "s\nStereophonic\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureProductionElements[] = {
    "Production elements",
    "e\nMixing tracks\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nOuttakes\n",
    "g\nProduction rolls\n",
    "d\nRushes\n",
    "f\nTitle bands/inter-title rolls\n",
    "b\nTrims\n",
    "a\nWorkprint\n",
    nullptr,
};

inline constexpr const char* kMotionPicturePolarity[] = {
    "Positive/negative aspect (motion picture)",
    "b\nNegative\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "a\nPositive\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureGeneration[] = {
    "Generation (motion picture)",
    "d\nDuplicate\n",
    "e\nMaster\n",
    "o\nOriginal\n",
    "z\nOther\n",
    "r\nReference print/viewing copy\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureBase[] = {
    "Base of film (motion picture)",
    "m\nMixed base (nitrate and safety)\n",
    "i\nNitrate base\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nSafety base, acetate undetermined\n",
    "d\nSafety base, diacetate\n",
    "r\nSafety base, mixed\n",
    "p\nSafety base, polyester\n",
    "t\nSafety base, triacetate\n",
    "a\nSafety base, undetermined\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureRefinedColor[] = {
    "Refined categories of color",
    "b\n2 color, single strip\n",
    "f\n2 strip color\n",
    "a\n3 layer color\n",
    "e\n3 strip color\n",
    "h\nBlue or green strip\n",
    "i\nCyan strip\n",
    "v\nHand colored\n",
    "j\nMagenta strip\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "q\nOther tone\n",
    "g\nRed strip\n",
    "l\nS E N 2\n",
    "m\nS E N 3\n",
    "p\nSepia tone\n",
    "t\nStencil color\n",
    "r\nTint\n",
    "s\nTinted and toned\n",
    "c\nUndetermined 2 color\n",
    "d\nUndetermined 3 color\n",
    "u\nUnknown\n",
    "k\nYellow strip\n",
    nullptr,
};

inline constexpr const char* kMotionPictureColorStock[] = {
    "Kind of color stock or print",
    "d\nDuplitized stock\n",
    "a\nImbibition dye transfer prints\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nThree layer stock, low fade\n",
    "b\nThree-layer stock\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMotionPictureDeterioration[] = {
    "Deterioration stage",
    "d\nNitrate: brownish, discoloration, fading, dusty\n",
    "g\nNitrate: congealed\n",
    "f\nNitrate: frothy, bubbles, blisters\n",
    "h\nNitrate: powder\n",
    "c\nNitrate: pungent odor\n",
    "e\nNitrate: sticky\n",
    "b\nNitrate: suspicious odor\n",
    "l\nNon-nitrate: advanced deterioration\n",
    "k\nNon-nitrate: detectable deterioration\n",
    "m\nNon-nitrate: disaster\n",
    "a\nNone apparent\n",
    nullptr,
};

inline constexpr const char* kMotionPictureCompleteness[] = {
    "Completeness",
    "c\nComplete\n",
    "i\nIncomplete\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail
