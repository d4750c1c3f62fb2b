#pragma once

#include <zorby/elements/CFPart.h>

#include <string_view>

namespace quillory {

// The published name of an element, without the material it belongs to. Empty for undefined
// positions and for those whose meaning nobody has published.
std::string_view NameOfPart(zorby::CFPart part);

}  // namespace quillory
