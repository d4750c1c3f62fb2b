#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, videorecording. The formats are divided:
// cassettes VHS and Beta, videodiscs, and all but those two cassettes.
namespace zorby::detail {

// clang-format off
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

}  // namespace zorby::detail
