#include <quillory/places/Tag.h>

#include <algorithm>

namespace quillory {

unsigned TagNumber(std::string_view tag) {
    const auto isDigit = [](char c) { return '0' <= c && c <= '9'; };
    if (tag.size() != kTagSize || !std::ranges::all_of(tag, isDigit)) return kNoTag;
    unsigned number = 0;
    for (const char c : tag) number = 10 * number + static_cast<unsigned>(c - '0');
    return number;
}

std::string TagText(unsigned tag) {
    const std::string digits = std::to_string(tag);
    return std::string(kTagSize - std::min(digits.size(), kTagSize), '0') + digits;
}

}  // namespace quillory
