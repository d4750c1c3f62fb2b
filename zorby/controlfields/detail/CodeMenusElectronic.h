#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, electronic resource. Color is the list of
// 1998, without black-and-white. The second list of dimensions is that of disks.
namespace zorby::detail {

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
// clang-format on

}  // namespace zorby::detail
