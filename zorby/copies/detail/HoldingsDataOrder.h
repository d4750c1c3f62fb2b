#pragma once

#include <zorby/copies/HoldingsDataElement.h>

#include <memory>
#include <vector>

namespace zorby {

// Sorts as CHoldingsDataRecord::SortByTagAndSubfield says.
void SortForOutput(std::vector<std::unique_ptr<CHoldingsDataElement>>& elements);

}  // namespace zorby
