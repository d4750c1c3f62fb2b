#include <quillory/rules/Dates.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace quillory {
namespace {

// Of two digits.
int NumberAt(std::string_view digits, std::size_t at) {
    return (digits[at] - '0') * 10 + (digits[at + 1] - '0');
}

// Month and day stand at a place in digits.
bool IsDay(int year, std::string_view digits, std::size_t at) {
    const auto month = static_cast<unsigned>(NumberAt(digits, at));
    const auto day = static_cast<unsigned>(NumberAt(digits, at + 2));
    return std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(month),
                                       std::chrono::day(day))
        .ok();
}

}  // namespace

bool IsTimeStamp(std::string_view text) {
    constexpr std::size_t kSize = 16;
    constexpr std::size_t kPoint = 14;
    constexpr int kHours = 24;
    constexpr int kMinutes = 60;
    if (text.size() != kSize || text[kPoint] != '.') return false;
    if (!AreDigits(text.substr(0, kPoint)) || !AreDigits(text.substr(kPoint + 1))) return false;
    const int year = NumberAt(text, 0) * 100 + NumberAt(text, 2);
    return IsDay(year, text, 4) && NumberAt(text, 8) < kHours && NumberAt(text, 10) < kMinutes &&
           NumberAt(text, 12) < kMinutes;
}

}  // namespace quillory
