#pragma once

#include <string_view>

namespace quillory {

// The term of a code of content (field 336), media (337) or carrier (338), as the Library of
// Congress publishes them for RDA; empty if the list has no such code.
std::string_view MediaTermOf(unsigned tag, std::string_view code);

// The name that $2 has for the list of a field: "rdacontent".
std::string_view MediaListOf(unsigned tag);

}  // namespace quillory
