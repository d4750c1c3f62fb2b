#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/places/Place.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quillory {

// An element where it stands in a field.
struct FieldElement {
    const Element& element;
    std::size_t first;  // position in the field: the section of an 008 is that of an 006, moved

    std::size_t Width() const { return static_cast<std::size_t>(element.Width()); }
    std::size_t End() const { return first + Width(); }

    // Its value among the bytes of the field; shorter, or empty, where the field ends before it.
    std::string_view ValueIn(std::string_view field) const {
        return field.substr(std::min(first, field.size()), Width());
    }
    // Of two fields of the format's length.
    bool IsSameIn(std::string_view field, std::string_view other) const {
        return ValueIn(field) == ValueIn(other);
    }
    Place PlaceIn(const Place& field) const {
        return field.Positions(static_cast<int>(first), static_cast<int>(End()) - 1);
    }
};

// Calls `visit` with each FieldElement of a field of this form, in order. The section of an 008
// (positions 18 to 34) is read by the material of the record, `material`.
template <class Visit>
void ForEachElement(zorby::CFType form, zorby::CFType material, Visit visit) {
    const auto visitAt = [&](const Element& element, int offset) {
        visit(FieldElement{element, static_cast<std::size_t>(element.first + offset)});
    };
    bool hasSection = form != zorby::CF008Standard;
    for (const Element& element : ElementsOf(form)) {
        if (!hasSection && element.first >= kFirstMaterial008) {
            hasSection = true;
            for (const Element& inSection : ElementsOf(material)) {
                if (inSection.first > 0) visitAt(inSection, kMaterialOffset008);
            }
        }
        visitAt(element, 0);
    }
}

}  // namespace quillory
