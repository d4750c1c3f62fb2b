#pragma once

#include <quillory/text/Ascii.h>

#include <utf8proc.h>

#include <string>
#include <string_view>

namespace quillory {

enum NormalForm : std::int32_t { kNormalFormC, kNormalFormD };

struct Utf8Char {
    char32_t codePoint = 0;
    std::size_t size = 1;  // bytes
    bool valid = false;
};

// The character at the front of a text that is not empty.
inline Utf8Char DecodeUtf8(std::string_view text) {
    utf8proc_int32_t codePoint = 0;
    const utf8proc_ssize_t size =
        utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                         static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    if (size < 1) return {0, 1, false};
    return {static_cast<char32_t>(codePoint), static_cast<std::size_t>(size), true};
}

// What stands for a character that was lost.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

inline void AppendUtf8(char32_t codePoint, std::string& text) {
    utf8proc_uint8_t bytes[4];
    const utf8proc_ssize_t size =
        utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), bytes);
    text.append(bytes, bytes + size);
}

// Whether a normal form may join a character to the one before it: combining characters, and the
// vowels and finals of Hangul.
inline bool IsCombining(char32_t codePoint) {
    constexpr char32_t kFirstCombining = 0x0300;
    if (codePoint < kFirstCombining) return false;
    if (codePoint >= 0x1160 && codePoint <= 0x11FF) return true;
    return utf8proc_get_property(static_cast<utf8proc_int32_t>(codePoint))->combining_class != 0;
}

inline bool IsControlCharacter(char32_t codePoint) {
    constexpr char32_t kFirstPrintable = 0x20;
    constexpr char32_t kLastC1Control = 0x9F;
    return codePoint < kFirstPrintable ||
           (codePoint >= char32_t{kDelete} && codePoint <= kLastC1Control);
}

// Whether a byte is part of a character and not the first of it.
inline bool IsContinuation(char byte) {
    constexpr unsigned kMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    return (static_cast<unsigned char>(byte) & kMask) == kContinuation;
}

// The bytes of the last character of a text that is not empty.
inline std::string_view LastCharacter(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (start > 0 && IsContinuation(text[start])) --start;
    return text.substr(start);
}

// The text in a normal form. A text that is not UTF-8 stays as it is.
std::string Normalized(std::string_view text, NormalForm form);

}  // namespace quillory
