#pragma once

#include <quillory/jobs/NewRecords.h>
#include <quillory/jobs/WriteRecords.h>

#include <functional>
#include <string>

namespace quillory {

struct MakeRecordOptions {
    NewRecordOptions record;  // its workform goes before that of the description
    std::string from;         // TOML file that describes the record; empty for none
    OutputOptions output;
};

// Puts into a draft what a person adds to it.
using DraftFiller = std::function<void(const Pattern& pattern, Draft& draft)>;

// Makes one record and writes it. What can't be done is said before `fill`, which may be empty, is
// called. Throws FileError and UsageError.
Status MakeRecord(const MakeRecordOptions& options, const DraftFiller& fill, Reporter& reporter);

}  // namespace quillory
