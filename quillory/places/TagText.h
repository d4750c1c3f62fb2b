#pragma once

#include <string>

namespace quillory {

// A tag as a record has it, in three digits.
std::string TagText(unsigned tag);

}  // namespace quillory
