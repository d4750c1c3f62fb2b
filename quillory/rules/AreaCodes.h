#pragma once

#include <optional>
#include <string_view>

namespace quillory {

// The MARC Code List for Geographic Areas, as of 2013 with the codes of Kosovo, Montenegro, Serbia
// and South Sudan. Codes have seven characters: "n-us---".
bool IsAreaCode(std::string_view code);

// For a code that the list has withdrawn: the one that took its place, or an empty text.
std::optional<std::string_view> ObsoleteAreaCode(std::string_view code);

}  // namespace quillory
