#pragma once

#include <zorby/controlfields/CFPart.h>

#include <string_view>

namespace zorby::detail {

// Whether a repair would surely leave the bytes of an element as they are, told by each of them
// alone, without material or default. False says nothing. This is an index over code menus and
// rules, for speed: most elements of most records are valid.
bool HasOnlyValidBytes(CFPart part, std::string_view bytes);

}  // namespace zorby::detail
