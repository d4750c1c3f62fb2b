#pragma once

#include <zorby/platform/ControlPort.h>

#include <string>
#include <string_view>

namespace zorby {

// A list of the holdings systems in the dictionary, by their present names.
void FillTypeNames(ListPort& list);
// Selects nothing if the list doesn't have the name.
void SelectTypeName(ListPort& list, std::string_view name);
// Returns an empty text if nothing is selected.
std::string SelectedTypeName(const ListPort& list);

}  // namespace zorby
