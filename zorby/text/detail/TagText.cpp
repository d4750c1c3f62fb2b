#include <zorby/text/detail/TagText.h>

namespace zorby {

std::string TagText(unsigned tag) {
    constexpr std::size_t kWidth = 3;
    std::string digits = std::to_string(tag);
    if (digits.size() < kWidth) digits.insert(0, kWidth - digits.size(), '0');
    return digits;
}

}  // namespace zorby
