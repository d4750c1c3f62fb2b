#pragma once

#include <string_view>

namespace zorby {

// Returns the number that a text begins with: white space, a sign and decimal digits. Without
// digits the result is 0. A number that is too large or too small becomes the largest or the
// smallest int.
int DecimalInt(std::string_view text);

// Returns the same, up to the largest unsigned number. A negative number is converted as by a cast.
unsigned DecimalUnsigned(std::string_view text);

}  // namespace zorby
