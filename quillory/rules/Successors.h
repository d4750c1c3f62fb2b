#pragma once

#include <string_view>

namespace quillory {

// Where the content of a field that the format has withdrawn belongs now: "490 and 830". Empty
// where the format names no place. The histories of content designators in the MARC 21 Format for
// Bibliographic Data tell of them.
std::string_view SuccessorOfField(unsigned tag);

// The same of a subfield: "$q".
std::string_view SuccessorOfSubfield(std::string_view tag, char code);

}  // namespace quillory
