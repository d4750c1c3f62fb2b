#pragma once

#include <string>

namespace zorby {

// A MARC tag as it is written: three digits, or more where the number has more.
std::string TagText(unsigned tag);

}  // namespace zorby
