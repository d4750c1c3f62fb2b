#pragma once

#include <zorby/copies/HoldingsDataElement.h>

#include <memory>
#include <vector>

namespace zorby {

// The order that CHoldingsDataRecord::SortByTagAndSubfield tells.
void SortForOutput(std::vector<std::unique_ptr<CHoldingsDataElement>>& elements);

}  // namespace zorby
