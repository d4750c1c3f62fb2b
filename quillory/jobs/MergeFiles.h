#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>
#include <quillory/sets/FieldMerge.h>

#include <string>
#include <vector>

namespace quillory {

struct MergeOptions {
    InputOptions input = {};  // two files: the records, and those with fields for them
    OutputOptions output = {};
    std::vector<std::string> by = {};  // ways to match, as MatchKeys reads them; none for 001
    std::string fields = {};           // which of them, as ParsePlaceSet reads it: whole fields
    MergeMode mode = MergeMode::Add;
};

// Writes the records of the first file, with fields of the records of the second that have one of
// their keys. Of several such records the first counts. Throws FileError and UsageError.
Status MergeFiles(const MergeOptions& options, Reporter& reporter);

}  // namespace quillory
