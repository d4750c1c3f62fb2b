#pragma once

#include <quillory/rules/NumberMet.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// A number as the results of a check give it: "020 $a: 9780596000271".
struct GivenNumber {
    Place place;
    std::string_view number;
};

// What is long, or has bytes that JSON may not hold, is told from others by a hash.
std::string GivenNumberText(const NumberMet& met);
// The result is a view of the text; nothing for what is no such text.
std::optional<GivenNumber> ParseGivenNumber(std::string_view text);

}  // namespace quillory
