#pragma once

#include <quillory/checks/ByteSet.h>

#include <string>
#include <string_view>

namespace quillory {

// A value of a record in a message: in quotation marks, but "blank" for blanks alone, and "empty".
std::string Shown(std::string_view value);

// Values of one character in a message: "blank, 1 or 3 to 9".
std::string ValuesText(const ByteSet& values);

// What took the place of an obsolete code: "the code is xr or xo now" for "xr xo".
std::string SuccessorText(std::string_view codes);

}  // namespace quillory
