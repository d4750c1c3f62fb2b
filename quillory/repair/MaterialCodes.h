#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string_view>

namespace quillory {

// What the coded fields say of an item: an 006 of its own, or Leader and 008 together. A view into
// these fields.
struct MaterialCodes {
    zorby::CFType form = zorby::CF006None;  // of the 006
    char typeOfRecord = '\0';               // Leader/06 or 006/00
    std::string_view section =
        {};  // in the positions of the 006, byte 0 of no account; may be empty

    static MaterialCodes OfRecord(std::string_view leader, std::string_view field008);
    static MaterialCodes Of006(zorby::CFType form, std::string_view field006);
};

// The kind of item as the library names it. The 007 may be empty.
zorby::MaterialType MaterialOf(const MaterialCodes& codes, std::string_view field007);
// The same by a 007 alone.
zorby::MaterialType MaterialOf007(std::string_view field007);

// Whether a 007 of this category belongs to such an item. The 007 of a microform belongs to none:
// it describes a reproduction, which there may be of any item.
bool Belongs007To(const MaterialCodes& codes, zorby::CFType category);

}  // namespace quillory
