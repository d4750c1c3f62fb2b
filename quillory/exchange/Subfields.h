#pragma once

#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <string_view>

namespace quillory {

// What a field's content is made of.
enum FieldShape : std::int32_t {
    kControlShape,  // text alone
    kDataShape,     // two indicators, then subfields that each have a code
    kBrokenShape    // a data field that is not so made
};

// A control field, or one whose tag has letters, is taken for a data field if it is made like one,
// as formats other than MARC 21 have it.
FieldShape ShapeOf(const zorby::CommFormatField& field);

// Whether a delimiter has no subfield code after it.
bool HasEmptyCode(std::string_view content);

// Calls `take` for each part of a field's content, which together are all of it: what stands before
// the first delimiter, if anything does, and each delimiter with all up to the next one.
template <class Take>
void ForEachPart(std::string_view content, Take&& take) {
    while (!content.empty()) {
        const std::size_t size = std::min(content.find(zorby::kDelimiter, 1), content.size());
        take(content.substr(0, size));
        content.remove_prefix(size);
    }
}

struct Subfield {
    std::string_view code;  // one character, of several bytes if it is beyond ASCII
    std::string_view text;
};

// The code at the front of what comes after a delimiter: empty if nothing does.
std::string_view SubfieldCodeOf(std::string_view text);

// `part` is a delimiter, a code and text.
Subfield SubfieldOf(std::string_view part);

// Calls `take(code, text)` for each subfield of a data field, in order; the code is one byte. What
// stands before the first delimiter (indicators), and a delimiter without a code, are no subfields.
template <class Take>
void ForEachSubfield(std::string_view content, Take&& take) {
    ForEachPart(content, [&take](std::string_view part) {
        if (part.size() > 1 && part[0] == zorby::kDelimiter) take(part[1], part.substr(2));
    });
}

}  // namespace quillory
