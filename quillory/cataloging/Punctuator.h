#pragma once

#include <quillory/cataloging/Entry.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

enum class Punctuation {
    Put,   // the marks of the ISBD, where the texts lack them
    Keep,  // as the texts are
    Omit,  // none: marks of the workform's texts are taken away
};

// What stands in a field of a new record.
struct DraftedField {
    std::string tag;
    std::string indicators;
    std::vector<SubfieldText> subfields;
    std::vector<bool> ofWorkform;  // by subfield: a text that nobody gave for this record
};

// Sets the marks between the subfields and at the end of the field. A text that ends in a mark
// keeps it; one of the workform's loses a mark that leads nowhere. `hasSeries` says that a series
// statement follows the description, for which field 300 ends in a full stop.
void Punctuate(Punctuation punctuation, bool hasSeries, DraftedField& field);

}  // namespace quillory
