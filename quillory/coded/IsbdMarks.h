#pragma once

#include <string_view>

namespace quillory {

// The mark that stands at the end of a subfield because of the subfield that follows it, as ISBD
// and the input conventions of the MARC 21 Format for Bibliographic Data have it.
struct IsbdMark {
    std::string_view tags;    // "260 264"
    std::string_view after;   // codes of the subfield that has the mark at its end
    char before;              // code of the subfield that follows
    std::string_view mark;    // with the blank before it: " :"
    std::string_view others;  // last characters that will do as well: "=;"
    bool isHeading = false;   // of a heading, and not of the description
};

// Whether there are marks in the fields of a tag.
bool HasIsbdMarks(unsigned tag);

// The mark between two subfields of a field, by their codes; null if none is asked for.
const IsbdMark* IsbdMarkBetween(unsigned tag, char code, char next);
const IsbdMark* IsbdMarkBetween(std::string_view tag, char code, char next);

// Whether a text ends with the mark, or with one that will do as well.
bool EndsWithMark(std::string_view text, const IsbdMark& mark);

}  // namespace quillory
