#pragma once

#include <zorby/elements/CFPart.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// A date or number of the 008 or 007 that is not in the form of the format, in that form. Only what
// the value says is kept: a digit that it marks as unknown is unknown. Nothing where the value does
// not tell the digits from the rest, or where the element holds codes.
std::optional<std::string> ValueInForm(zorby::CFPart part, std::string_view value);

}  // namespace quillory
