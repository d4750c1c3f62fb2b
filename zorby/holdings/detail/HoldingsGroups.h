#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/platform/WindowPort.h>

#include <string>
#include <string_view>

namespace zorby {

// Whether a system has this name, in any case of its letters: its settings can't be left unset, and
// it has no bar codes to give out.
bool IsMandarinEZTransfer(std::string_view typeName);

// Returns the group of a system's settings, kBasic for a system that the dictionary doesn't know.
HoldingsGroup GroupOfType(std::string_view typeName);

// Shows the dialog of a system's group. Returns whether the user confirmed; else both texts stay.
bool RunGroupDialog(std::string_view typeName, std::string& nextBarCode, std::string& extra,
                    WindowPort* parent);

}  // namespace zorby
