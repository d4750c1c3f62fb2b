#pragma once

#include <optional>
#include <string_view>

namespace quillory {

// The MARC Code List for Geographic Areas, as of 2013 with the codes of Kosovo, Montenegro, Serbia
// and South Sudan. Codes have seven characters: "n-us---".
bool IsAreaCode(std::string_view code);

// For a code that the list has withdrawn: the one that took its place, or an empty text.
std::optional<std::string_view> ObsoleteAreaCode(std::string_view code);

// The one code that a text is meant for, but for hyphens, case or a single sign; empty if none or
// several are as near.
std::string AreaCodeNear(std::string_view text);

}  // namespace quillory
