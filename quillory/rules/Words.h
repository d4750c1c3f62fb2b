#pragma once

#include <quillory/checks/FieldRules.h>

#include <string>
#include <string_view>

namespace quillory {

// A value of a record in a message: in quotation marks, but "blank" for blanks alone, and "empty".
std::string Shown(std::string_view value);

// Values of one character in a message: "blank, 1 or 3 to 9".
std::string ValuesText(const Codes& values);

}  // namespace quillory
