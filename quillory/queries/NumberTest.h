#pragma once

#include <quillory/places/Place.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

enum NumberOperator : std::int32_t {
    kNumberEqual,
    kNumberNotEqual,
    kNumberLess,
    kNumberLessOrEqual,
    kNumberGreater,
    kNumberGreaterOrEqual
};

// Holds two numbers, or two texts, against each other.
template <class Value>
bool Compare(const Value& left, NumberOperator op, const Value& right) {
    switch (op) {
        case kNumberEqual:
            return left == right;
        case kNumberNotEqual:
            return left != right;
        case kNumberLess:
            return left < right;
        case kNumberLessOrEqual:
            return left <= right;
        case kNumberGreater:
            return left > right;
        case kNumberGreaterOrEqual:
            return left >= right;
    }
    return false;
}

// Compares the number or the date in a value with a given one.
//
// The number of a value is the first one in its text: 1999 of "c1999.", 304 of "304 p.". An
// incomplete year, as in "[199-?]" or "19uu", is none. That of positions of a control field is all
// that is there but for blanks, so "19uu" has none. A date is read from "2024-05-31", "2024-05",
// "20240531" and "2024", and compared as far as both dates go. In 005, and in 008/00-05 whose years
// are from 1960 to 2059, a value is always a date, and a number of 4, 6 or 8 digits given for it
// too.
class NumberTest {
public:
    // Nothing if the text is neither a number nor a date.
    static std::optional<NumberTest> Of(NumberOperator op, std::string_view text);

    bool Holds(const Place& place, std::string_view value) const;

private:
    NumberOperator op_ = kNumberEqual;
    std::optional<double> number_;
    std::string date_;  // digits: yyyy, yyyymm or yyyymmdd
};

}  // namespace quillory
