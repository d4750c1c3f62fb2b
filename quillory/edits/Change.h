#pragma once

#include <quillory/places/Place.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What one step of a task did to a record. Texts are UTF-8; a whole field is written as
// "10$aTitle", with {dollar} for a dollar sign in text.
struct Change {
    std::string_view operation;         // its name
    Place place;                        // the record as a whole if the order of fields changed
    std::optional<std::string> before;  // nothing if the place is new
    std::optional<std::string> after;   // nothing if the place is gone
};

// A field before and after a step, by its content in UTF-8 with indicators and delimiters. The
// result names no more than what differs: an indicator, positions, each subfield, or the field.
std::vector<Change> ChangesOfField(const Place& field, std::string_view before,
                                   std::string_view after);

// The content of a field as Change has it.
std::string WrittenField(const Place& field, std::string_view content);

}  // namespace quillory
