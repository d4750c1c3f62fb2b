#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/faults/Fault.h>

#include <string_view>
#include <vector>

namespace quillory {

// An element as a person asked for it: in 008, or in the field of its own.
struct NamedElement {
    const Element* element;
    bool in008 = false;
};

// The elements that a place names, such as
//   leader/06  ldr/06  008/18  008/18-21  008a/18  006/05  006m/05  007/00  007c/01  part 310
// A letter after the tag is the type of record or category of material; without one, the place
// names the elements of all forms. A field and letter without a position, or the leader alone,
// names all its elements.
struct NamedPlace {
    std::vector<NamedElement> elements;
    Fault fault;  // why there are none
};
NamedPlace FindPlace(std::string_view text);

// Whether a text has the shape of such a place, right or wrong, and not that of a data field.
bool IsCodedPlace(std::string_view text);

}  // namespace quillory
