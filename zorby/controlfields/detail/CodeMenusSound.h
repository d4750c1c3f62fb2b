#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, sound recording. The shorter lists of one
// position are those of records and tapes.
namespace zorby::detail {

// clang-format off
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
// clang-format on

}  // namespace zorby::detail
