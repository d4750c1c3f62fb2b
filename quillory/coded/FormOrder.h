#pragma once

#include <quillory/coded/Elements.h>

#include <vector>

namespace quillory {

// An element as a form for the whole of a coded field asks for it.
struct AskedElement {
    const Element* element = nullptr;
    bool in008 = false;    // it stands in 008, and not in a 006
    bool isUsual = false;  // the library's own forms show it

    Place In(const Place& field) const;  // its positions in that field
};

// All elements of the Leader, a 006, 007 or 008, in the order in which a form asks for them: first
// those that the library's forms for such materials show, as they show them, then all others by
// position. `field` names the tag, and `form` the material by which the field is read; for an 008
// of unknown material they are those that all materials have in common.
std::vector<AskedElement> ElementsAsked(const Place& field, zorby::CFType form);

}  // namespace quillory
