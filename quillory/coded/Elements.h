#pragma once

#include <quillory/places/Place.h>
#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>

#include <string>
#include <vector>

namespace quillory {

// An element: neighbouring bytes of a form, to which one or several code lists of the library
// apply.
struct Element {
    zorby::CFType form;
    int first;  // positions in the Leader, 006, 007 or 008; a form of 006 counts as in 006
    int last;
    std::vector<zorby::CFPart> parts;  // a number for each list; empty for undefined positions
    std::string name;                  // as published; "Undefined" for undefined positions

    int Width() const { return last - first + 1; }
    bool IsUndefined() const { return parts.empty(); }
};

// The elements of a form, by position. Empty for a form without elements.
const std::vector<Element>& ElementsOf(zorby::CFType form);

// The library's own element that combines the form of item with the specific material designation
// of a microform. Its form is CF006None, and it has no positions of its own.
const Element& CombinedFormOfItem();

// The element to which a number belongs. Null if there is none.
const Element* ElementOfPart(zorby::CFPart part);

// The length of a field of this form in bytes: 24 for the leader, 40 for 008, 18 for 006, and that
// of its category for 007.
int LengthOfForm(zorby::CFType form);

// 008/18-34 are positions 1 to 17 of a form of 006.
constexpr int kMaterialOffset008 = 17;
constexpr int kFirstMaterial008 = 18;
constexpr int kLastMaterial008 = 34;

bool IsFormOf006(zorby::CFType form);
bool IsFormOf007(zorby::CFType form);

// Where an element stands: 008/18-21, 006/01-04, leader/06. With `in008` an element of 006 is given
// its positions in 008, except position 0, which 008 lacks. The combined element stands in two
// fields, and its place is the first of them.
Place PlaceOf(const Element& element, bool in008);

// The place of an element as people write it: "008/18-21". The tag alone, and the positions alone:
// "008", "18-21". The combined element has the positions "23 with 007h/01".
std::string ElementPlaceText(const Element& element, bool in008);
std::string ElementFieldText(const Element& element, bool in008);
std::string ElementPositionsText(const Element& element, bool in008);

}  // namespace quillory
