#pragma once

#include <zorby/elements/CFType.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

// Which of the MARC 21 formats a record is of. A type of record that none of them has counts as
// bibliographic.
enum MarcFormat : std::int32_t {
    kFormatBibliographic,
    kFormatAuthority,
    kFormatClassification,
    kFormatCommunity,
    kFormatHoldings,
};

// By Leader/06.
MarcFormat MarcFormatOf(std::string_view leader);
bool IsBibliographic(std::string_view leader);

// Which form a field is to be read by. Letters are those of the MARC 21 Format for Bibliographic
// Data: Leader/06 and 07, 006/00, 007/00.

// The form of 008/18-34 in a record with this Leader; CF006None for a Leader too short, or of no
// type that the format has.
zorby::CFType MaterialOfLeader(std::string_view leader);

// By the first byte of the field; CF006None and CF007None for an empty field or a letter that the
// format has not.
zorby::CFType MaterialOf006(std::string_view field006);
zorby::CFType CategoryOf007(std::string_view field007);

// All forms of 006, of 007, in the order of the format.
const std::vector<zorby::CFType>& FormsOf006();
const std::vector<zorby::CFType>& FormsOf007();

// "books", "sound recording". "all" for the Leader and the positions common to all materials;
// empty for a form that nothing is published of.
std::string_view FormName(zorby::CFType form);
// The letters that choose a form of 006 or 007. Empty for any other.
std::string_view FormLetters(zorby::CFType form);

// The kind of a record by its Leader: "books", "authority data", "unknown material".
std::string MaterialText(std::string_view leader);

}  // namespace quillory
