#pragma once

#include <algorithm>
#include <string_view>

namespace quillory {

inline constexpr std::string_view kWhiteSpace = " \t\r\n";
inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

inline bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

// True for an empty text, too.
inline bool AreDigits(std::string_view text) {
    return std::ranges::all_of(text, IsDigit);
}

inline bool IsAsciiLetter(char c) {
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
}

// A small letter for an ASCII capital, and any other byte as it is.
inline char LowerAscii(char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline constexpr char kDelete = 0x7F;

inline bool IsAsciiControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == kDelete;
}

// Nothing but blanks. True for an empty text, too.
inline bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == text.npos;
}

// Without the blanks at both ends.
inline std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace quillory
