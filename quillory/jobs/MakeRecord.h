#pragma once

#include <quillory/jobs/NewRecords.h>
#include <quillory/jobs/WriteRecords.h>

#include <functional>
#include <string>

namespace quillory {

struct MakeRecordOptions {
    NewRecordOptions record;  // its workform replaces that of the description
    std::string from;         // TOML file that describes the record; may be empty
    OutputOptions output;
};

// Lets a person add to a draft.
using DraftFiller = std::function<void(const Pattern& pattern, Draft& draft)>;

// Makes one record and writes it. `fill`, which may be empty, is called when all that the options
// say has been found sound. Throws FileError and UsageError.
Status MakeRecord(const MakeRecordOptions& options, const DraftFiller& fill, Reporter& reporter);

}  // namespace quillory
