#pragma once

#include <zorby/record/CommFormat.h>

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

struct Subfield {
    std::string_view code;  // one character, of several bytes if it is none of ASCII
    std::string_view text;
};

// Takes a subfield off the front of `content`, which begins with a delimiter and a code.
Subfield TakeSubfield(std::string_view& content);

// Calls `take(code, text)` for each subfield of a data field, in order. What stands before the
// first delimiter (indicators), and a delimiter at the very end, are no subfields.
template <class Take>
void ForEachSubfield(std::string_view content, Take&& take) {
    std::size_t start = content.find(zorby::kDelimiter);
    while (start < content.size()) {
        const std::size_t end =
            std::min(content.find(zorby::kDelimiter, start + 1), content.size());
        if (end > start + 1) take(content[start + 1], content.substr(start + 2, end - start - 2));
        start = end;
    }
}

}  // namespace quillory
