#pragma once

#include <zorby/elements/CFPart.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// The meaning of a value that is not a code, such as a date, a length or a number.
struct FreeValue {
    std::string text;  // empty if the value speaks for itself
    bool fits = true;  // false for a value that the element can't have
};

// Nothing for a value that is to be looked up in the code lists: that of an element of codes, or a
// code in an element of numbers.
std::optional<FreeValue> ReadFreeValue(zorby::CFPart part, std::string_view value);

// Whether a value is a day as 008/00-05 has it: yymmdd.
bool IsDayEntered(std::string_view value);

// What a value of the element looks like: "ccyymm, ...". Empty for an element of codes.
std::string_view FormOfFreeValue(zorby::CFPart part);

}  // namespace quillory
