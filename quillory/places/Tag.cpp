#include <quillory/places/Tag.h>

#include <algorithm>

namespace quillory {

std::string TagText(unsigned tag) {
    std::string digits = std::to_string(tag);
    digits.insert(0, kTagSize - std::min(digits.size(), kTagSize), '0');
    return digits;
}

}  // namespace quillory
