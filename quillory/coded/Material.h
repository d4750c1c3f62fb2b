#pragma once

#include <zorby/elements/CFType.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillory {

inline constexpr std::size_t kBibliographicLevel = 7;  // in the Leader

// The MARC 21 formats. A type of record that is unknown to all of them counts as bibliographic.
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

// The form by which a field is read. The letters are those of the MARC 21 Format for Bibliographic
// Data: Leader/06 and 07, 006/00, 007/00.

// The form of 008/18-34 in a record with this Leader. CF006None for a Leader that is too short, or
// whose type of record the format lacks.
zorby::CFType MaterialOfLeader(std::string_view leader);

// By the first byte of the field. CF006None and CF007None for an empty field, or for a letter that
// the format lacks.
zorby::CFType MaterialOf006(std::string_view field006);
zorby::CFType CategoryOf007(std::string_view field007);

// All forms of 006, and all of 007, in the order of the format.
const std::vector<zorby::CFType>& FormsOf006();
const std::vector<zorby::CFType>& FormsOf007();

// "books", "sound recording". "all" for the Leader and the positions common to all materials. Empty
// for a form that was never published.
std::string_view FormName(zorby::CFType form);
// The letters that choose a form of 006 or 007. Empty for any other.
std::string_view FormLetters(zorby::CFType form);

// The kind of a record by its Leader: "books", "authority data", "unknown material".
std::string MaterialText(std::string_view leader);

}  // namespace quillory
