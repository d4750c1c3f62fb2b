#pragma once

#include <quillory/exchange/Record.h>

#include <string>
#include <vector>

namespace quillory {

// Saves a record, which is in UTF-8, as a workform of the user's of that name: new records begin
// with its coded fields and with the texts of its data fields. It rests on the standard workform of
// the record's material. The result is as that of FillWorkform. `force` replaces a workform of that
// name. The workforms have to be in force. Throws FileError, and UsageError for what a workform
// can't hold.
std::vector<Place> SaveAsWorkform(const Record& record, const std::string& name, bool force);

}  // namespace quillory
