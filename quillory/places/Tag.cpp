#include <quillory/places/Tag.h>

#include <algorithm>

namespace quillory {

unsigned TagNumber(std::string_view tag) {
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

std::string TagText(unsigned tag) {
    const std::string digits = std::to_string(tag);
    return std::string(kTagSize - std::min(digits.size(), kTagSize), '0') + digits;
}

}  // namespace quillory
