#pragma once

#include <string>
#include <string_view>

namespace quillory {

// What a person types into a search box, as an expression: the text itself if it is one or tries to
// be, else that each of its words stands somewhere in the record. Words in quotation marks belong
// together. Empty for a text without words.
std::string ExpressionOf(std::string_view typed);

}  // namespace quillory
