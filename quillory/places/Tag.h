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
unsigned TagNumber(std::string_view tag);

// "245" for 245, below kTags.
std::string TagText(unsigned tag);

}  // namespace quillory
