#pragma once

#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <optional>
#include <string_view>

namespace quillory {

// What a value of a holdings file is: an element of the system, or a subfield to carry into the
// record as it is.
struct HoldingsColumn {
    zorby::EHOLDINGSID element = {};
    int tag = 0;  // 0 for an element
    char code = 0;
};

// The column of a name: that of an element, in any case, or its number, or a place such as "852$z"
// in one of the system's fields. None for any other name.
std::optional<HoldingsColumn> FindColumn(const HoldingsSystem& system, std::string_view name);

// Adds a value. False if the copy has no room for it: of some elements it takes a few only.
bool AddValue(const HoldingsColumn& column, std::string_view value,
              zorby::CHoldingsDataRecord& copy);

}  // namespace quillory
