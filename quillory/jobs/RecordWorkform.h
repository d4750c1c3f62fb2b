#pragma once

#include <quillory/exchange/Record.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Whether the fields of a tag name one record, and are not those of another like it.
bool NamesOneRecord(std::string_view tag);

// Saves a record, which is in UTF-8, as a workform of the user's of that name: new records begin
// with its coded fields and with the texts of its data fields. It rests on the standard workform of
// the record's material. Fields that name one record don't belong to it; the result is which others
// a workform has no room for. `force` replaces a workform of that name. The workforms have to be in
// force. Throws FileError, and UsageError for what a workform can't hold.
std::vector<Place> SaveAsWorkform(const Record& record, const std::string& name, bool force);

}  // namespace quillory
