#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, tactile material, and the single lists of
// notated music, text and unspecified. The lists of elements that take several codes have no blank.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kUnspecifiedSMD[] = {
    "Specific material designation (unspecified)",
    "m\nMultiple physical forms\n",
    "z\nOther\n",
    "u\nUnspecified\n",
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

inline constexpr const char* kNotatedMusicSMD[] = {
    "Specific material designation (notated music)",
    "|\nNo attempt to code\n",
    "u\nUnspecified\n",
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
// clang-format on

}  // namespace zorby::detail
