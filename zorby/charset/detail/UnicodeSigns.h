#pragma once

#include <zorby/charset/CodePoint.h>
#include <zorby/charset/detail/Engine.h>

namespace zorby {

// How single bytes are shown in Unicode.

inline constexpr char16_t kHookAboveMark = 0x0309;
inline constexpr char16_t kDottedCircle = 0x25CC;  // stands in for a letter that isn't there
inline constexpr char16_t kNoGlyphSign = 0x25A1;   // a box
inline constexpr char16_t kNoCharacterSign = 0xFFFD;

// The sign of a byte below 0x20, or 0x7F.
constexpr char16_t ControlSign(unsigned char byte) {
    constexpr char16_t kFirstPicture = 0x2400;
    constexpr char16_t kDeletePicture = 0x2421;
    if (byte == '\t' || byte == '\n' || byte == '\r') return byte;
    return byte == kGlyphMissing ? kDeletePicture : static_cast<char16_t>(kFirstPicture + byte);
}

inline char16_t QmSign(unsigned char code) {
    const char16_t codePoint = CodePointOf(code);
    return codePoint != 0 ? codePoint : ControlSign(code);
}

// The display code of type 1 is Latin-1 and these four of Windows-1252.
constexpr char16_t AnsiSign(unsigned char display) {
    switch (display) {
        case 0x8C:
            return 0x0152;
        case 0x91:
            return 0x2018;
        case 0x92:
            return 0x2019;
        case 0x9C:
            return 0x0153;
        default:
            break;
    }
    if (display == kGlyphMissing) return kNoGlyphSign;
    if (display < 0x20) return ControlSign(display);
    return display < kGlyphMissing || display >= 0xA0 ? display : kNoCharacterSign;
}

}  // namespace zorby
