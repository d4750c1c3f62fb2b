#pragma once

#include <quillory/coded/Elements.h>
#include <quillory/places/Place.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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

// Elements side by side in a field: of kMost bytes together, or a single one that is wider.
struct ElementRun {
    static constexpr std::size_t kMost = 7;

    std::size_t first;
    std::size_t size;
    std::uint8_t number;  // another one, from 1, for each run of a layout
    bool isDay;           // the day on which a record was entered, alone
    std::vector<FieldElement> elements;

    std::size_t End() const { return first + size; }
    // Shorter, or empty, where the field ends before it.
    std::string_view BytesIn(std::string_view field) const {
        return field.substr(std::min(first, field.size()), size);
    }
};

struct FieldLayout {
    std::size_t length = 0;  // in bytes
    // All elements, in order, without those of the Leader that are the file's (00-04 and 12-16).
    std::vector<ElementRun> runs = {};
};

// The layout of a field of this form. The section of an 008 (positions 18 to 34) is read by the
// material of the record.
const FieldLayout& LayoutOf(zorby::CFType form, zorby::CFType material);

}  // namespace quillory
