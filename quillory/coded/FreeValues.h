#pragma once

#include <zorby/elements/CFPart.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// What a value says that is no code: a date, a length, a number.
struct FreeValue {
    std::string text;  // empty if the value speaks for itself
    bool fits = true;  // false for a value that the element can't have
};

// Nothing for an element of codes, or for a value that stands for a number and is a code: to be
// looked up in the lists.
std::optional<FreeValue> ReadFreeValue(zorby::CFPart part, std::string_view value);

}  // namespace quillory
