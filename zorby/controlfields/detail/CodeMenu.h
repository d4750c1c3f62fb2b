#pragma once

#include <zorby/controlfields/CFPart.h>

namespace zorby::detail {

// A code list: its title, its items in display order, a null.
using CodeMenu = const char* const*;

// The list of an element, or null. Elements that share a list give the same pointer.
CodeMenu FindCodeMenu(CFPart part);

}  // namespace zorby::detail
