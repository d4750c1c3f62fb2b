#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>

#include <cstdint>
#include <string>

namespace quillory {

// How records are divided: by exactly one of records, bytes and place.
struct SplitOptions {
    InputOptions input = {};
    OutputOptions output = {};   // its path is the pattern of names, with "{}"
    std::uint64_t records = 0;   // of a file, at most
    std::string size = {};       // bytes of a file, at most, as ParseByteSize reads them
    std::string by = {};         // a place: a file for each value, the first one of a record
    bool force = false;          // replace files that are there
    std::uint64_t most = 10000;  // files
};

// Divides the records of files among many files, which get their names when all are complete.
// Throws FileError and UsageError.
Status SplitFiles(const SplitOptions& options, Reporter& reporter);

}  // namespace quillory
