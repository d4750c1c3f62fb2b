#pragma once

#include <string>

namespace zorby {

// Returns a MARC tag as it is written: three digits, or more if the number has more.
std::string TagText(unsigned tag);

}  // namespace zorby
