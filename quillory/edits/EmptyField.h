#pragma once

#include <quillory/edits/EditSession.h>

#include <string>
#include <string_view>

namespace quillory {

// The content of a new field by the dictionary in force: nothing for a control field, else the
// usual indicators and an empty subfield of the code that comes first.
std::string EmptyField(std::string_view tag);

// Where a new field of this tag comes among the others: after the last one of its own or a lower
// tag, so that fields in order stay so.
std::size_t PlaceOfNew(const EditSession::State& record, std::string_view tag);

// The code that a person most likely wants next in a field: the first of the dictionary that the
// field lacks, or 'a'.
char NextCode(std::string_view tag, std::string_view content);

}  // namespace quillory
