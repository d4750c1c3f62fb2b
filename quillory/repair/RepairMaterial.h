#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string_view>

namespace quillory {

// Whether a repair may touch a record with this Leader, by its type of record (Leader/06).
enum class RecordFormat {
    Bibliographic,
    Other,    // authority, holdings, classification, community information
    Unknown,  // no type of record of any format
};
RecordFormat FormatOfLeader(std::string_view leader);

// The kind of item that a type of record (Leader/06, 006/00), its material section (18 bytes in the
// positions of 006) and the 007 beside it tell of. The 007 may be empty.
zorby::MaterialType MaterialOf(zorby::CFType form006, char typeOfRecord, std::string_view section,
                               std::string_view field007);
// That of a 007 alone.
zorby::MaterialType MaterialOf007(std::string_view field007);

// Whether a 007 of this category belongs to such a type of record and section. A microform's never
// does: it goes with any, as that of a reproduction.
bool Belongs007To(zorby::CFType form006, char typeOfRecord, std::string_view section,
                  zorby::CFType category);

}  // namespace quillory
