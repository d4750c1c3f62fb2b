#pragma once

#include <algorithm>
#include <string_view>

namespace zorby {

inline bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

// True for an empty text, too.
inline bool AreDigits(std::string_view text) {
    return std::ranges::all_of(text, IsDigit);
}

}  // namespace zorby
