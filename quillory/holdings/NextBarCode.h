#pragma once

#include <quillory/places/Place.h>

namespace quillory {

// Whether bar codes stand at a place, by the holdings settings in force.
bool IsPlaceOfBarCode(const Place& place);

// Whether the settings hold the bar code that the next copy gets.
bool HasNextBarCode();

}  // namespace quillory
