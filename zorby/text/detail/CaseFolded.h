#pragma once

#include <algorithm>
#include <string_view>

namespace zorby {

// Bytes are compared as unsigned numbers, and ASCII capitals as their small letters, in every
// locale.
constexpr unsigned char FoldCase(char c) {
    return static_cast<unsigned char>('A' <= c && c <= 'Z' ? c - 'A' + 'a' : c);
}

constexpr bool LessCaseFolded(std::string_view left, std::string_view right) {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char a, char b) { return FoldCase(a) < FoldCase(b); });
}

constexpr bool EqualCaseFolded(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return FoldCase(a) == FoldCase(b); });
}

}  // namespace zorby
