#include <zorby/platform/detail/Decimal.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace zorby {

namespace {

std::int64_t DecimalValue(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    std::uint32_t digits = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), digits);
    const std::int64_t value = result.ec == std::errc::result_out_of_range
                                   ? std::numeric_limits<std::uint32_t>::max()
                                   : digits;
    return isNegative ? -value : value;
}

}  // namespace

int DecimalInt(std::string_view text) {
    return static_cast<int>(std::clamp<std::int64_t>(
        DecimalValue(text), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

unsigned DecimalUnsigned(std::string_view text) {
    const std::int64_t value = DecimalValue(text);
    return static_cast<unsigned>(value < 0 ? DecimalInt(text) : value);
}

}  // namespace zorby
