#pragma once

#include <zorby/holdings/InfoAboutHoldingsType.h>

#include <vector>

namespace quillory {

// Tags of the data fields that hold copies under a system of the holdings dictionary, each once.
// Those of the user's own fields, as the settings in force have them, for a system without
// elements, or null.
std::vector<unsigned> HoldingsTags(const zorby::CInfoAboutHoldingsType* type);

}  // namespace quillory
