#pragma once

#include <quillory/reports/RecordScreen.h>

namespace quillory {

// Appends the elements of a field, each in a line with its positions, name, code and text, and with
// a further line for each further code; blanks are shown as "#". A question mark stands before a
// value that the format does not allow. Lines begin at the column `indent`.
void AppendDecoded(const DecodedField& field, std::size_t indent, const ScreenOptions& options,
                   std::string& text);

}  // namespace quillory
