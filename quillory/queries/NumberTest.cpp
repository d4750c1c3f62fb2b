#include <quillory/queries/NumberTest.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <charconv>

namespace quillory {
namespace {

constexpr std::size_t kYearSize = 4;
constexpr std::size_t kMonthSize = 6;
constexpr std::size_t kDaySize = 8;
constexpr unsigned kDateEntered = 8;  // 008/00-05 is the date entered on file
constexpr unsigned kDateOfLatest = 5;
constexpr int kLastOfDateEntered = 5;

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return end - at;
}

// The size of a number at the front of a text that begins with a digit.
std::size_t SizeOfNumber(std::string_view text) {
    const std::size_t whole = DigitsAt(text, 0);
    if (whole == text.size() || text[whole] != '.') return whole;
    const std::size_t parts = DigitsAt(text, whole + 1);
    return parts == 0 ? whole : whole + 1 + parts;
}

std::optional<double> NumberOf(std::string_view digits) {
    double number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc()) return std::nullopt;
    return number;
}

// Digits of a year that is not fully known, before what stands for the others.
bool IsIncompleteYear(std::string_view text, std::size_t size) {
    if (size >= kYearSize || size == text.size()) return false;
    const char next = text[size];
    return next == 'u' || (next == '-' && DigitsAt(text, size + 1) == 0);
}

std::optional<double> FirstNumber(std::string_view text) {
    while (true) {
        const auto* first = std::ranges::find_if(text, IsDigit);
        if (first == text.end()) return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
        const std::size_t size = SizeOfNumber(text);
        if (!IsIncompleteYear(text, size)) return NumberOf(text.substr(0, size));
        text.remove_prefix(size);
    }
}

std::optional<double> WholeNumber(std::string_view text) {
    text = WithoutBlanks(text);
    if (text.empty() || DigitsAt(text, 0) != text.size()) return std::nullopt;
    return NumberOf(text);
}

// "-05" at the front of a text.
bool HasDashedPart(std::string_view text) {
    return text.starts_with('-') && DigitsAt(text, 1) == 2;
}

// The digits of a date at the front of a text: of "2024-05-31", "2024-05", "20240531", "2024".
std::string DateAt(std::string_view text) {
    const std::size_t digits = DigitsAt(text, 0);
    if (digits >= kDaySize) return std::string(text.substr(0, kDaySize));
    if (digits != kYearSize) return {};
    std::string date(text.substr(0, kYearSize));
    text.remove_prefix(kYearSize);
    while (HasDashedPart(text) && date.size() < kDaySize) {
        date += text.substr(1, 2);
        text.remove_prefix(3);
    }
    return date;
}

std::string FirstDate(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t digits = DigitsAt(text, at);
        if (digits != 0) {
            std::string date = DateAt(text.substr(at));
            if (!date.empty()) return date;
        }
        at += std::max<std::size_t>(digits, 1);
    }
    return {};
}

bool IsDateEntered(const Place& place) {
    return place.Number() == kDateEntered && place.first == 0 && place.last == kLastOfDateEntered;
}

bool IsDate(const Place& place) {
    return (place.Number() == kDateOfLatest && !place.HasPositions()) || IsDateEntered(place);
}

// The date of 005 or of 008/00-05.
std::string DateOf(const Place& place, std::string_view value) {
    if (!IsDateEntered(place)) return FirstDate(value);
    if (DigitsAt(value, 0) != kMonthSize) return {};
    return (value.front() < '6' ? "20" : "19") + std::string(value);
}

// A number that may be meant as a date.
std::string DateOfNumber(std::string_view digits) {
    const bool isDate =
        DigitsAt(digits, 0) == digits.size() &&
        (digits.size() == kYearSize || digits.size() == kMonthSize || digits.size() == kDaySize);
    return isDate ? std::string(digits) : std::string();
}

}  // namespace

std::optional<NumberTest> NumberTest::Of(NumberOperator op, std::string_view text) {
    NumberTest test;
    test.op_ = op;
    text = WithoutBlanks(text);
    if (text.empty() || !IsDigit(text.front())) return std::nullopt;
    const std::string date = DateAt(text);
    const std::size_t dashes = static_cast<std::size_t>(std::ranges::count(text, '-'));
    if (dashes > 0) {
        if (date.size() + dashes != text.size()) return std::nullopt;
        test.date_ = date;
        return test;
    }
    if (SizeOfNumber(text) != text.size()) return std::nullopt;
    test.number_ = NumberOf(text);
    test.date_ = DateOfNumber(text);
    return test;
}

bool NumberTest::Holds(const Place& place, std::string_view value) const {
    if (number_ && !IsDate(place)) {
        const auto number = place.HasPositions() ? WholeNumber(value) : FirstNumber(value);
        return number && Compare(*number, op_, *number_);
    }
    const std::string date = DateOf(place, value);
    const std::size_t size = std::min(date.size(), date_.size());
    return size != 0 && Compare(date.substr(0, size), op_, date_.substr(0, size));
}

}  // namespace quillory
