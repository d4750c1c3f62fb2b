#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The year that a date of publication names, as $c of 264 and 260 has it: "2021." and "[2021]" and
// "\302\2512021" name 2021, and of a serial "2021-" too. Empty for a date that is uncertain, a
// range, or in words.
std::string YearOf(std::string_view date, bool isContinuing);

}  // namespace quillory
