#pragma once

#include <string_view>

namespace zorby {

// The number that a text starts with: white space, a sign and decimal digits. 0 without digits.
// What is too large or too small becomes the largest or smallest.
int DecimalInt(std::string_view text);

// The same up to the largest unsigned number; a negative number is what a cast makes of it.
unsigned DecimalUnsigned(std::string_view text);

}  // namespace zorby
