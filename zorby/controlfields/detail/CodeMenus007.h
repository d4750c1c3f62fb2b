#pragma once

// Made by tools/code-menus from data/marc21/codes/007.tsv. Change that, and run it.
//
// MARC 21 Format for Bibliographic Data as of 2010, 007. Globe and map share color and type of
// reproduction. The designations of maps are without atlas, a material of its own. Color of
// electronic resources is the list of 1998, without black-and-white. Where a position has several
// menus, the shorter ones are cut to the kind of item: disks, records, tapes, VHS and Beta
// cassettes, videodiscs. The designations of projected graphics have code f twice, under its two
// names. Where tactile material takes several codes, its menu has no blank.
namespace zorby {

// clang-format off
inline constexpr const char* kElectronicSMD[] = {
    "Specific material designation (electronic resource)",
    "b\nChip cartridge\n",
    "k\nComputer card\n",
    "e\nComputer disc cartridge, type unspecified\n",
    "d\nComputer disc, type unspecified\n",
    "c\nComputer optical disc cartridge\n",
    "j\nMagnetic disk\n",
    "m\nMagneto-optical disc\n",
    "o\nOptical disc\n",
    "z\nOther\n",
    "r\nRemote\n",
    "a\nTape cartridge\n",
    "f\nTape cassette\n",
    "h\nTape reel\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kElectronicColor[] = {
    "Color (computer file)",
    "g\nGray scale\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "n\nNot applicable\n",
    "a\nOne color\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicDimensionsOther[] = {
    "Dimensions (computer file - other)",
    "i\n1 1/8 x 2 3/8 in.\n",
    "e\n12 in.\n",
    "a\n3 1/2 in.\n",
    "j\n3 7/8 x 2 1/2 in.\n",
    "g\n4 3/4 in. or 12 cm.\n",
    "o\n5 1/4 in.\n",
    "v\n8 in.\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicDimensionsDisk[] = {
    "Dimensions (computer file - disk)",
    "e\n12 in.\n",
    "a\n3 1/2 in.\n",
    "g\n4 3/4 in. or 12 cm.\n",
    "o\n5 1/4 in.\n",
    "v\n8 in.\n",
    nullptr,
};

inline constexpr const char* kElectronicSound[] = {
    "Sound",
    " \nNo sound (silent)\n",
    "a\nSound\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicFileFormats[] = {
    "File formats",
    "m\nMultiple file formats\n",
    "a\nOne file format\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicQualityTargets[] = {
    "Quality assurance targets",
    "a\nAbsent\n",
    "n\nNot applicable\n",
    "p\nPresent\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicSource[] = {
    "Antecedent/source",
    "c\nFile reproduced from an electronic resource\n",
    "d\nFile reproduced from an intermediate (not microform)\n",
    "b\nFile reproduced from microform\n",
    "a\nFile reproduced from original\n",
    "m\nMixed\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicCompression[] = {
    "Level of compression",
    "b\nLossless\n",
    "d\nLossy\n",
    "m\nMixed\n",
    "a\nUncompressed\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kElectronicReformattingQuality[] = {
    "Reformatting quality",
    "a\nAccess\n",
    "n\nNot applicable\n",
    "p\nPreservation\n",
    "r\nReplacement\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kGlobeSMD[] = {
    "Specific material designation (globe)",
    "a\nCelestial globe\n",
    "e\nEarth moon globe\n",
    "z\nOther\n",
    "b\nPlanetary or lunar globe\n",
    "c\nTerrestrial globe\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kGlobeMedium[] = {
    "Physical medium (globe)",
    "v\nLeather\n",
    "d\nMetal\n",
    "z\nOther\n",
    "a\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "f\nSkin\n",
    "c\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "b\nWood\n",
    nullptr,
};

inline constexpr const char* kMapSMD[] = {
    "Specific material designation (map)",
    "g\nDiagram\n",
    "j\nMap\n",
    "q\nModel\n",
    "z\nOther\n",
    "k\nProfile\n",
    "r\nRemote-sensing image\n",
    "s\nSection\n",
    "u\nUnspecified\n",
    "y\nView\n",
    nullptr,
};

inline constexpr const char* kCartographicColor[] = {
    "Color (map)",
    "c\nMulticolored\n",
    "a\nOne color\n",
    nullptr,
};

inline constexpr const char* kMapMedium[] = {
    "Physical medium (map)",
    "r\nFlexible base photographic, negative\n",
    "q\nFlexible base photographic, positive\n",
    "j\nGlass\n",
    "v\nLeather\n",
    "d\nMetal\n",
    "t\nNon-flexible base photographic, negative\n",
    "s\nNon-flexible base photographic, positive\n",
    "z\nOther\n",
    "y\nOther photographic medium\n",
    "a\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "f\nSkin\n",
    "c\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "b\nWood\n",
    nullptr,
};

inline constexpr const char* kCartographicReproduction[] = {
    "Type of reproduction",
    "f\nFacsimile\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMapProductionDetails[] = {
    "Production reproduction details",
    "d\nFilm\n",
    "z\nOther\n",
    "b\nPhotocopy\n",
    "a\nPhotocopy, blueline print\n",
    "c\nPhotographic pre-production\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMapPolarity[] = {
    "Positive/negative aspect (map)",
    "m\nMixed polarity\n",
    "b\nNegative\n",
    "n\nNot applicable\n",
    "a\nPositive\n",
    nullptr,
};

inline constexpr const char* kMicroformPolarity[] = {
    "Positive/negative aspect (microform)",
    "m\nMixed polarity\n",
    "b\nNegative\n",
    "a\nPositive\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMicroformDimensions[] = {
    "Dimensions (microform)",
    "h\n105 mm.\n",
    "d\n16 mm.\n",
    "p\n3 1/4 x 7 3/8 in. or 9x19 cm.\n",
    "f\n35 mm.\n",
    "l\n3x5 in. or 8x13 cm.\n",
    "m\n4x6 in. or 11x15 cm.\n",
    "o\n6x9 in. or 16x23 cm.\n",
    "g\n70 mm.\n",
    "a\n8 mm.\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMicroformReductionRange[] = {
    "Reduction ratio range",
    "c\nHigh reduction\n",
    "a\nLow reduction ratio\n",
    "b\nNormal reduction\n",
    "v\nReduction rate varies\n",
    "e\nUltra high reduction\n",
    "u\nUnknown\n",
    "d\nVery high reduction\n",
    nullptr,
};

inline constexpr const char* kMicroformColor[] = {
    "Color (microform)",
    "b\nBlack-and-white\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMicroformEmulsion[] = {
    "Emulsion on film",
    "b\nDiazo\n",
    "m\nMixed emulsion\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "a\nSilver halide\n",
    "u\nUnknown\n",
    "c\nVesicular\n",
    nullptr,
};

inline constexpr const char* kMicroformGeneration[] = {
    "Generation (microform)",
    "a\nFirst generation (master)\n",
    "m\nMixed generation\n",
    "b\nPrinting master\n",
    "c\nService copy\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMicroformBase[] = {
    "Base of film (microform)",
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

inline constexpr const char* kNotatedMusicSMD[] = {
    "Specific material designation (notated music)",
    "|\nNo attempt to code\n",
    "u\nUnspecified\n",
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

inline constexpr const char* kSensorAltitude[] = {
    "Altitude of sensor",
    "b\nAirborne\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nSpaceborne\n",
    "a\nSurface\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSensorAttitude[] = {
    "Attitude of sensor",
    "b\nHigh oblique\n",
    "a\nLow oblique\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    "c\nVertical\n",
    nullptr,
};

inline constexpr const char* kCloudCover[] = {
    "Cloud cover",
    "0\n0-9%\n",
    "1\n10-19%\n",
    "2\n20-29%\n",
    "3\n30-39%\n",
    "4\n40-49%\n",
    "5\n50-59%\n",
    "6\n60-69%\n",
    "7\n70-79%\n",
    "8\n80-89%\n",
    "9\n90-100%\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kPlatformConstruction[] = {
    "Platform construction type",
    "d\nAircraft--high altitude\n",
    "b\nAircraft--low altitude\n",
    "c\nAircraft--medium altitude\n",
    "a\nBalloon\n",
    "g\nLand-based remote-sensing device\n",
    "e\nManned spacecraft\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "i\nSubmersible remote-sensing device\n",
    "u\nUnknown\n",
    "f\nUnmanned spacecraft\n",
    "h\nWater surface-based remote-sensing device\n",
    nullptr,
};

inline constexpr const char* kPlatformUse[] = {
    "Platform use category",
    "a\nMeteorological\n",
    "m\nMixed uses\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nSpace observing\n",
    "b\nSurface observing\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSensorType[] = {
    "Sensor type",
    "a\nActive\n",
    "z\nOther\n",
    "b\nPassive\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kDataType[] = {
    "Data type",
    "rc\nBouger\n",
    "mm\nCombination of various data types\n",
    "dv\nCombinations\n",
    "dc\nFar infrared\n",
    "ja\nFar ultraviolet\n",
    "rb\nFree-air\n",
    "ra\nGravity anomalies (general)\n",
    "gf\nInfometric SAR\n",
    "rd\nIsostatic\n",
    "sa\nMagnetic field\n",
    "db\nMiddle infrared\n",
    "jb\nMiddle ultraviolet\n",
    "ma\nMulti-spectral, multidata\n",
    "mb\nMulti-temporal\n",
    "da\nNear infrared\n",
    "jc\nNear ultraviolet\n",
    "nn\nNot applicable\n",
    "zz\nOther\n",
    "pz\nOther acoustical data\n",
    "dz\nOther infrared data\n",
    "gz\nOther microwave data\n",
    "jz\nOther ultraviolet data\n",
    "gu\nPassive microwave mapping\n",
    "gg\nPolarmetric SAR\n",
    "ta\nRadiometric surveys\n",
    "df\nReflective infrared\n",
    "ge\nSAR-cross polarization\n",
    "gd\nSAR-like polarization\n",
    "gc\nSAR-multi-frequency (multichannel)\n",
    "pe\nSeismic surveys\n",
    "de\nShortwave infrared (SWIR)\n",
    "ga\nSidelooking airborne radar (SLAR)\n",
    "pb\nSonar--bottom topography images, sidescan\n",
    "pd\nSonar--bottom topography, near-bottom\n",
    "pc\nSonar--bottom topography, near-surface\n",
    "pa\nSonar--water depth\n",
    "gb\nSynthetic aperture radar (SAR)-Single frequency\n",
    "dd\nThermal infrared\n",
    "jv\nUltraviolet combinations\n",
    "uu\nUnknown\n",
    "aa\nVisible light\n",
    nullptr,
};

inline constexpr const char* kSoundSMD[] = {
    "Specific material designation (sound recording)",
    "e\nCylinder\n",
    "z\nOther\n",
    "q\nRoll\n",
    "g\nSound cartridge\n",
    "s\nSound cassette\n",
    "d\nSound disc\n",
    "t\nSound-tape reel\n",
    "i\nSound-track film\n",
    "u\nUnspecified\n",
    "w\nWire recording\n",
    nullptr,
};

inline constexpr const char* kSoundSpeedOther[] = {
    "Speed (sound recording - other)",
    "l\n1 7/8 ips (tapes)\n",
    "f\n1.4 m. per second (discs)\n",
    "h\n120 rpm (cylinders)\n",
    "p\n15 ips (tapes)\n",
    "k\n15/16 ips (tapes)\n",
    "a\n16 rpm (discs)\n",
    "i\n160 rpm (cylinders)\n",
    "m\n3 3/4 ips (tapes)\n",
    "r\n30 ips (tapes)\n",
    "b\n33 1/3 rpm (discs)\n",
    "c\n45 rpm (discs)\n",
    "o\n7 1/2 ips (tapes)\n",
    "d\n78 rpm (discs)\n",
    "e\n8 rpm (discs)\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundSpeedRecord[] = {
    "Speed (sound recording - record)",
    "a\n16 rpm (discs)\n",
    "b\n33 1/3 rpm (discs)\n",
    "c\n45 rpm (discs)\n",
    "d\n78 rpm (discs)\n",
    "e\n8 rpm (discs)\n",
    nullptr,
};

inline constexpr const char* kSoundPlaybackChannels[] = {
    "Configuration of playback channels (sound recording)",
    "m\nMonaural\n",
    "z\nOther\n",
    "q\nQuadraphonic, multichannel, or surround\n",
    "s\nStereophonic\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundGrooveWidth[] = {
    "Groove width and pitch",
    "s\nCoarse/standard\n",
    "m\nMicrogroove/fine\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundDimensionsOther[] = {
    "Dimensions (sound recording - other)",
    "d\n10 in. diameter\n",
    "e\n12 in. diameter\n",
    "f\n16 in. diameter\n",
    "s\n2 3/4 x 4 in.\n",
    "j\n3 7/8 x 2 1/2 in.\n",
    "a\n3 in. diameter\n",
    "g\n4 3/4 in. or 12 cm. diameter\n",
    "o\n5 1/4 x 3 7/8 in.\n",
    "b\n5 in. diameter\n",
    "c\n7 in. diameter\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundDimensionsRecord[] = {
    "Dimensions (sound recording - record)",
    "d\n10 in. diameter\n",
    "e\n12 in. diameter\n",
    "c\n7 in. diameter\n",
    nullptr,
};

inline constexpr const char* kSoundTapeWidth[] = {
    "Tape width",
    "p\n1 in.\n",
    "o\n1/2 in.\n",
    "m\n1/4 in.\n",
    "l\n1/8 in.\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundTapeConfiguration[] = {
    "Tape configuration",
    "d\nEight track\n",
    "a\nFull (1) track\n",
    "b\nHalf (2) track\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nQuarter (4) track\n",
    "f\nSixteen track\n",
    "e\nTwelve track\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundKindOfDisc[] = {
    "Kind of disc, cylinder or tape",
    "d\nDisc master (negative)\n",
    "i\nInstantaneous (recorded on the spot)\n",
    "m\nMass-produced\n",
    "a\nMaster tape\n",
    "r\nMother (positive)\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "s\nStamper (negative)\n",
    "b\nTape duplication master\n",
    "t\nTest pressing\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundKindOfTape[] = {
    "Kind of tape",
    "i\nInstantaneous (recorded on the spot)\n",
    "m\nMass-produced\n",
    nullptr,
};

inline constexpr const char* kSoundKindOfMaterial[] = {
    "Kind of material (sound recording - other)",
    "c\nAcetate tape with ferrous oxide\n",
    "i\nAluminum with lacquer\n",
    "b\nCellulose nitrate\n",
    "g\nGlass with lacquer\n",
    "a\nLacquer coating\n",
    "l\nMetal\n",
    "z\nOther\n",
    "r\nPaper with lacquer or ferrous oxide\n",
    "p\nPlastic\n",
    "m\nPlastic with metal\n",
    "s\nShellac\n",
    "u\nUnknown\n",
    "w\nWax\n",
    nullptr,
};

inline constexpr const char* kSoundKindOfCutting[] = {
    "Kind of cutting",
    "h\nHill-and-dale cutting\n",
    "l\nLateral or combined cutting\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundPlaybackCharacteristics[] = {
    "Special playback characteristics",
    "b\nCCIR standard\n",
    "h\nCX encoded\n",
    "d\nDbx encoded\n",
    "e\nDigital recording\n",
    "f\nDolby-A encoded\n",
    "c\nDolby-B encoded\n",
    "g\nDolby-C encoded\n",
    "a\nNAB standard\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSoundCaptureTechnique[] = {
    "Capture and storage technique",
    "a\nAcoustical capture, direct storage\n",
    "e\nAnalog electrical storage\n",
    "d\nDigital storage\n",
    "b\nDirect storage, not acoustical\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kTactileSMD[] = {
    "Specific material designation (tactile material)",
    "b\nBraille\n",
    "c\nCombination\n",
    "a\nMoon\n",
    "z\nOther\n",
    "d\nTactile, with no writing system\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kTactileBrailleClass[] = {
    "Class of braille writing",
    "d\nComputer braille\n",
    "b\nFormat code braille\n",
    "a\nLiterary braille\n",
    "c\nMathematics and scientific braille\n",
    "m\nMultiple braille types\n",
    "e\nMusic braille\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kTactileContraction[] = {
    "Level of contraction",
    "m\nCombination\n",
    "b\nContracted\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "a\nUncontracted\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kTactileBrailleMusicFormat[] = {
    "Braille music format",
    "b\nBar by bar\n",
    "a\nBar over bar\n",
    "g\nLine by line\n",
    "c\nLine over line\n",
    "n\nNot applicable\n",
    "h\nOpen score\n",
    "z\nOther\n",
    "k\nOutline\n",
    "d\nParagraph\n",
    "f\nSection by section\n",
    "j\nShort form scoring\n",
    "e\nSingle line\n",
    "i\nSpanner short form scoring\n",
    "u\nUnknown\n",
    "l\nVertical score\n",
    nullptr,
};

inline constexpr const char* kTactilePhysicalCharacteristics[] = {
    "Special physical characteristics",
    "b\nJumbo or enlarged braille\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "a\nPrint/braille\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kTextSMD[] = {
    "Specific material designation (text)",
    "c\nBraille\n",
    "b\nLarge print\n",
    "d\nLoose-leaf\n",
    "z\nOther\n",
    "a\nRegular print\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kUnspecifiedSMD[] = {
    "Specific material designation (unspecified)",
    "m\nMultiple physical forms\n",
    "z\nOther\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kVideoSMD[] = {
    "Specific material designation (videorecording)",
    "z\nOther\n",
    "u\nUnspecified\n",
    "c\nVideocartridge\n",
    "f\nVideocassette\n",
    "d\nVideodisc\n",
    "r\nVideoreel\n",
    nullptr,
};

inline constexpr const char* kVideoColor[] = {
    "Color (videorecording)",
    "b\nBlack-and-white\n",
    "m\nMixed\n",
    "c\nMulticolored\n",
    "n\nNot applicable\n",
    "a\nOne color\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kVideoFormatOther[] = {
    "Videorecording format (videorecording - other)",
    "p\n8 mm.\n",
    "i\nBetacam (1/2 in., videocassette)\n",
    "j\nBetacam SP (1/2 in., videocassette)\n",
    "s\nBlu-ray disc\n",
    "h\nCED (Capacitance Electronic Disc) videodisc\n",
    "o\nD-2 (3/4 in., videocassette)\n",
    "v\nDVD\n",
    "d\nEIAJ (1/2 in., reel)\n",
    "q\nHi-8 mm.\n",
    "g\nLaserdisc\n",
    "m\nM-II (1/2 in., videocassette)\n",
    "z\nOther\n",
    "f\nQuadruplex (1 in. or 2 in., reel)\n",
    "k\nSuper-VHS (1/2 in., videocassette)\n",
    "e\nType C (1 in., reel)\n",
    "c\nU-matic (3/4 in., videocassette)\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kVideoFormatTape[] = {
    "Videorecording format (VHS and BETA)",
    "a\nBeta (1/2 in., videocassette)\n",
    "b\nVHS (1/2 in., videocassette)\n",
    nullptr,
};

inline constexpr const char* kVideoFormatDisc[] = {
    "Videorecording format (videodisc)",
    "s\nBlu-ray disc\n",
    "h\nCED (Capacitance Electronic Disc) videodisc\n",
    "v\nDVD\n",
    "g\nLaserdisc\n",
    nullptr,
};

inline constexpr const char* kVideoSoundOnMedium[] = {
    "Sound on medium or separate (videorecording)",
    " \nNo sound (silent)\n",
    "a\nSound on medium\n",
    "b\nSound separate from medium\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kVideoMediumOfSound[] = {
    "Medium of sound (videorecording)",
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

inline constexpr const char* kVideoDimensions[] = {
    "Dimensions (videorecording)",
    "p\n1 in.\n",
    "o\n1/2 in.\n",
    "m\n1/4 in.\n",
    "q\n2 in.\n",
    "r\n3/4 in.\n",
    "a\n8 mm.\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kVideoPlaybackChannels[] = {
    "Configuration of playback channels (videorecording)",
    "k\nMixed\n",
    "m\nMonaural\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "q\nQuadraphonic, multichannel, or surround\n",
    "s\nStereophonic\n",
    "u\nUnknown\n",
    nullptr,
};
// clang-format on

}  // namespace zorby
