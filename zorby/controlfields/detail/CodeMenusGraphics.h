#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, non-projected and projected graphic. The
// designations of projected graphics have code f twice, under its two names.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kNonprojectedSMD[] = {
    "Specific material designation (non-projected graphic)",
    "a\nActivity card\n",
    "n\nChart\n",
    "c\nCollage\n",
    "d\nDrawing\n",
    "o\nFlash card\n",
    "q\nIcon\n",
    "z\nOther\n",
    "e\nPainting\n",
    "v\nPhotograph, type unspecified\n",
    "f\nPhotomechanical print\n",
    "g\nPhotonegative\n",
    "h\nPhotoprint\n",
    "i\nPicture\n",
    "p\nPostcard\n",
    "k\nPoster\n",
    "j\nPrint\n",
    "r\nRadiograph\n",
    "s\nStudy print\n",
    "l\nTechnical drawing\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kNonprojectedColor[] = {
    "Color (non-projected graphic)",
    "b\nBlack-and-white\n",
    "h\nHand colored\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "a\nOne color\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kNonprojectedPrimarySupport[] = {
    "Primary support material",
    "b\nBristol board\n",
    "a\nCanvas\n",
    "c\nCardboard/illustration board\n",
    "d\nGlass\n",
    "q\nHardboard\n",
    "v\nLeather\n",
    "h\nMetal\n",
    "m\nMixed collection\n",
    "z\nOther\n",
    "o\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "r\nPorcelain\n",
    "f\nSkin\n",
    "s\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "t\nWood\n",
    nullptr,
};

inline constexpr const char* kNonprojectedSecondarySupport[] = {
    "Secondary support material (non-projected graphic)",
    "b\nBristol board\n",
    "a\nCanvas\n",
    "c\nCardboard/illustration board\n",
    "d\nGlass\n",
    "q\nHardboard\n",
    "v\nLeather\n",
    "h\nMetal\n",
    "m\nMixed collection\n",
    " \nNo secondary support\n",
    "z\nOther\n",
    "o\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "r\nPorcelain\n",
    "f\nSkin\n",
    "s\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "t\nWood\n",
    nullptr,
};

inline constexpr const char* kProjectedSMD[] = {
    "Specific material designation (projected graphic)",
    "d\nFilmslip\n",
    "c\nFilmstrip cartridge\n",
    "o\nFilmstrip roll\n",
    "f\nFilmstrip, type unspecified\n",
    "z\nOther\n",
    "f\nOther filmstrip type\n",
    "s\nSlide\n",
    "t\nTransparency\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kProjectedColor[] = {
    "Color (projected graphic)",
    "b\nBlack-and-white\n",
    "h\nHand colored\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "n\nNot applicable\n",
    "a\nOne color\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kProjectedBaseEmulsion[] = {
    "Base emulsion",
    "k\nFilm base, other than safety film\n",
    "d\nGlass\n",
    "m\nMixed collection\n",
    "z\nOther\n",
    "o\nPaper\n",
    "j\nSafety film\n",
    "e\nSynthetic\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kProjectedSoundOnMedium[] = {
    "Sound on medium or separate (projected graphic)",
    " \nNo sound (silent)\n",
    "a\nSound on medium\n",
    "b\nSound separate from medium\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kProjectedMediumOfSound[] = {
    "Medium of sound (projected graphic)",
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

inline constexpr const char* kProjectedDimensions[] = {
    "Dimensions (projected graphic)",
    "x\n10x10 in. or 26x26 cm. transparency\n",
    "d\n16 mm. film width\n",
    "k\n2 1/4 x 2 1/4 in. or 6x6 cm. slide\n",
    "e\n28 mm. film width\n",
    "j\n2x2 in. or 5x5 cm. slide\n",
    "f\n35 mm. film width\n",
    "s\n4x5 in. or 10x13 cm. transparency\n",
    "t\n5x7 in. or 13x18 cm. transparency\n",
    "g\n70 mm. film width\n",
    "y\n7x7 in. or 18x18 cm. transparency\n",
    "v\n8x10 in. or 21x26 cm. transparency\n",
    "c\n9.5 mm. film width\n",
    "w\n9x9 in. or 23x23 cm. transparency\n",
    "z\nOther\n",
    "a\nStandard 8 mm. film width\n",
    "b\nSuper 8 mm./single 8 mm. film width\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kProjectedSecondarySupport[] = {
    "Secondary support material (projected graphic)",
    "c\nCardboard\n",
    "d\nGlass\n",
    "h\nMetal\n",
    "j\nMetal and glass\n",
    "m\nMixed collection\n",
    " \nNo secondary support\n",
    "z\nOther\n",
    "e\nSynthetic\n",
    "k\nSynthetic and glass\n",
    "u\nUnknown\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail
