#pragma once

#include <zorby/charset/detail/KeyTableRows.h>

#include <array>

namespace zorby {

// The MARC-8 alphabet of the text that a thread has in hand. The library is loaded with the
// program, so that its place is known from the start.
[[gnu::tls_model("initial-exec")]] extern constinit thread_local unsigned char currentAlphabet;

// Another byte for each of the `Qm` code.
using CodeMap = std::array<char, 256>;

constexpr bool IsPrintableASCII(unsigned char c) {
    return c >= 0x20 && c <= 0x7E;
}
constexpr bool IsASCIILetter(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
constexpr bool IsASCIIDigit(unsigned char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsDiacritic(unsigned char code) {
    return code >= 0xA3 && code <= 0xBE;
}

inline constexpr unsigned char kBlankBeforeDiacritic = 0x1F;
// Stands before its letter, as in MARC-8, and is therefore no diacritic of the `Qm` code.
inline constexpr unsigned char kHookAbove = 0xA2;

// A code for a character of its own, on which a diacritic can stand.
constexpr bool CanCarryDiacritic(unsigned char code) {
    return code >= kBlankBeforeDiacritic && code != 0x7F && code != kHookAbove &&
           !IsDiacritic(code);
}

inline constexpr unsigned char kGlyphMissing = 0x7F;

// The only mapping from the `Qm` code to a display code. If `keepControls` is nonzero, carriage
// return, line feed and tab are kept.
constexpr unsigned char DisplayCode(unsigned char code, int type, int keepControls) {
    if (IsPrintableASCII(code)) return code;
    if (keepControls != 0 && (code == '\r' || code == '\n' || code == '\t')) return code;
    if (type == 1) {
        const unsigned char display = kKeyTable[code].displayAnsi;
        return display == kNoAnsiGlyph ? kGlyphMissing : display;
    }
    return type == 2 ? kKeyTable[code].displayFont : static_cast<unsigned char>(0);
}

}  // namespace zorby
