#pragma once

#include <string_view>

namespace quillory {

// What a field is for, in a sentence or two for the cataloger, or nothing. It is told of the fields
// whose indicators explain nothing, since the dictionary itself holds explanations of indicators
// alone.
std::string_view FieldGuide(unsigned tag);

}  // namespace quillory
