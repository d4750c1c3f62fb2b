#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>

#include <string>
#include <vector>

namespace quillory {

struct SortOptions {
    InputOptions input = {};
    OutputOptions output = {};
    std::vector<std::string> by = {};  // as ParseKeyPlaces reads it, one after the other
    bool isNumeric = false;
    bool isReverse = false;
    std::string memory = "256M";  // as ParseByteSize reads it
};

// Writes the records of files in order, those that are equal in the order in which they came. What
// memory does not hold is kept in temporary files. Throws FileError and UsageError.
Status SortFiles(const SortOptions& options, Reporter& reporter);

}  // namespace quillory
