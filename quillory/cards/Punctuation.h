#pragma once

#include <quillory/cards/CardRecord.h>

#include <string>
#include <string_view>

namespace quillory {

// The subfields of a field as one text: those whose codes are not among `without`. Where the record
// has no punctuation of its own, that which ISBD prescribes for the field comes between them.
std::string Joined(const CardField& field, std::string_view without, bool hasPunctuation);

// Without blanks and the marks that would lead to something more: "Moby Dick /".
std::string WithoutLastMark(std::string text);

// With a full stop, unless the text ends in a mark that closes it.
std::string WithFullStop(std::string text);

// Adds an area of the description after a full stop, a blank, a dash and a blank.
void AddArea(std::string area, std::string& paragraph);

}  // namespace quillory
