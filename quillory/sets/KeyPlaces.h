#pragma once

#include <quillory/queries/PlaceSet.h>

#include <string>
#include <vector>

namespace quillory {

// What records are sorted, divided or matched by: a place, or the title with all that belongs to
// it.
struct KeyPlace {
    bool isTitle = false;
    PlaceSet place;  // of one pattern; empty for the title
};

// The places of an option's text. Throws UsageError, with the name of the option and where in the
// text it is, for what is no place.
PlaceSet ParsePlaces(const std::string& option, const std::string& text);

// "245a, 008/07-10", or "title". Throws UsageError, with the name of the option, for what is no
// place.
std::vector<KeyPlace> ParseKeyPlaces(const std::string& option, const std::string& text);
// The same for a text of one place.
KeyPlace ParseKeyPlace(const std::string& option, const std::string& text);

}  // namespace quillory
