#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/jobs/Reporter.h>

#include <string>

namespace quillory {

// Saves a record, which is in UTF-8, as a workform of the user's of that name: new records begin
// with its coded fields and with the texts of its data fields. It rests on the standard workform of
// the record's material. 001, 003 and 005, which name one record, are left out. `force` replaces a
// workform of that name. The workforms have to be in force. Throws FileError, and UsageError for
// what a workform can't hold.
void SaveAsWorkform(const Record& record, const std::string& name, bool force,
                    const Reporter& reporter);

}  // namespace quillory
