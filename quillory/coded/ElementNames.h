#pragma once

#include <zorby/elements/CFPart.h>

#include <string_view>

namespace quillory {

// The published name of an element, without its material. Empty for undefined positions, and for
// positions whose meaning was never published.
std::string_view NameOfPart(zorby::CFPart part);

}  // namespace quillory
