#include <quillory/rules/Dates.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <chrono>

namespace quillory {
namespace {

int Number(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) number = number * 10 + (digit - '0');
    return number;
}

bool IsDay(int year, std::string_view monthAndDay) {
    const auto month = static_cast<unsigned>(Number(monthAndDay.substr(0, 2)));
    const auto day = static_cast<unsigned>(Number(monthAndDay.substr(2, 2)));
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
    return IsDay(Number(text.substr(0, 4)), text.substr(4, 4)) &&
           Number(text.substr(8, 2)) < kHours && Number(text.substr(10, 2)) < kMinutes &&
           Number(text.substr(12, 2)) < kMinutes;
}

// A leap year may be meant by two digits.
bool IsDayOfEntry(std::string_view text) {
    constexpr std::size_t kSize = 6;
    constexpr int kCentury = 2000;
    if (text.size() != kSize || !AreDigits(text)) return false;
    return IsDay(kCentury + Number(text.substr(0, 2)), text.substr(2));
}

}  // namespace quillory
