#include <zorby/text/General.h>

#include <algorithm>
#include <cstdio>

namespace zorby {

unsigned CGeneral::UIntFromASCII(const char* text, int length) {
    constexpr int kMostDigits = 5;
    if (length <= 0 || length > kMostDigits) return 0;
    const std::string digits(text, std::find(text, text + length, '\0'));
    auto value = static_cast<unsigned>(length);
    std::sscanf(digits.c_str(), "%u", &value);
    return value;
}

void CGeneral::UIntToASCII(unsigned value, char* target, int width) {
    if (width <= 0) return;
    const auto room = static_cast<std::size_t>(width);
    const std::string digits = std::to_string(value);
    const std::size_t zeros = room - std::min(room, digits.size());
    std::fill_n(target, zeros, '0');
    std::copy_n(digits.begin(), room - zeros, target + zeros);
}

}  // namespace zorby
