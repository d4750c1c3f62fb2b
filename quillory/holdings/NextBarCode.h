#pragma once

#include <quillory/places/Place.h>

#include <string>

namespace quillory {

// Whether bar codes stand at a place, by the holdings settings in force.
bool IsPlaceOfBarCode(const Place& place);

// Whether the settings hold the bar code that the next copy gets.
bool HasNextBarCode();

// Takes it: the settings hold the one after it from then on.
std::string TakeNextBarCode();

}  // namespace quillory
