#pragma once

namespace zorby {

inline constexpr unsigned char kBackspace = 0x08;
// A blank on which a diacritic can stand, and what the edit box gets for it when it is typed.
inline constexpr unsigned char kBlankForDiacritic = 0x1F;
inline constexpr unsigned char kNoGlyph = 0x7F;

}  // namespace zorby
