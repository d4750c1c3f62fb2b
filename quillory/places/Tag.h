#pragma once

#include <string>
#include <string_view>

namespace quillory {

inline constexpr std::size_t kTagSize = 3;
inline constexpr unsigned kTags = 1000;
inline constexpr unsigned kNoTag = kTags;      // the number of a tag that is not three digits
inline constexpr unsigned kFirstDataTag = 10;  // lower ones are control fields
inline constexpr unsigned kTag005 = 5;
inline constexpr unsigned kTag006 = 6;
inline constexpr unsigned kTag007 = 7;
inline constexpr unsigned kTag008 = 8;
inline constexpr std::size_t kIndicators = 2;  // of a data field

// 245 for "245"; kNoTag for anything but three digits.
constexpr unsigned TagNumber(std::string_view tag) {
    if (tag.size() != kTagSize) return kNoTag;
    const auto digit = [tag](std::size_t at) {
        return static_cast<unsigned>(static_cast<unsigned char>(tag[at])) - '0';
    };
    const unsigned hundreds = digit(0);
    const unsigned tens = digit(1);
    const unsigned ones = digit(2);
    const bool areDigits = hundreds <= 9 && tens <= 9 && ones <= 9;
    return areDigits ? 100 * hundreds + 10 * tens + ones : kNoTag;
}

// "245" for 245, below kTags.
std::string TagText(unsigned tag);

}  // namespace quillory
