#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, microform.
namespace zorby::detail {

// clang-format off
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
// clang-format on

}  // namespace zorby::detail
