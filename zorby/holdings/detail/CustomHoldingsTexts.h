#pragma once

#include <string>
#include <string_view>

namespace zorby {

// Each returns what is wrong with a text of the custom holdings settings, or an empty text.

// The text loses blanks at both ends, and all but one between two entries.
std::string FaultOfAllFields(std::string& text);
// The text loses blanks at both ends. An empty one is right.
std::string FaultOfBarCode(std::string& text);
std::string FaultOfCallNumber(std::string& text);

}  // namespace zorby
