#pragma once

#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/places/Place.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <optional>
#include <string_view>

namespace quillory {

// What a value of a holdings file is: an element of the system, or a subfield to carry into the
// record as it is.
struct HoldingsColumn {
    zorby::EHOLDINGSID element = {};
    Place place = {};  // of the subfield; the record as a whole for an element
};

// The element of a system by its name, in any case, or its number; null if there is none.
const zorby::CInfoAboutHoldingsField* FindElement(const HoldingsSystem& system,
                                                  std::string_view name);

// The column of a name: that of an element, in any case, or its number, or a subfield such as
// "852$z" of one of the system's fields. None for any other name.
std::optional<HoldingsColumn> FindColumn(const HoldingsSystem& system, std::string_view name);

// Adds a value. False if the copy has no room for it: some elements take only a few values.
bool AddValue(const HoldingsColumn& column, std::string_view value,
              zorby::CHoldingsDataRecord& copy);

}  // namespace quillory
