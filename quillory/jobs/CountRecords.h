#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/queries/FieldCounts.h>
#include <quillory/queries/ValueCounts.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

struct CountOptions {
    InputOptions input;
    std::vector<std::string> values;  // sets of places, the values of each to be counted
};

struct RecordCounts {
    FieldCounts fields;
    std::vector<ValueCounts> values;  // of each set of places
    std::optional<CodeLists> lists;   // that give codes their names
};

// Counts what the records of files hold. Result: findings for damage. Throws FileError, and
// UsageError for a set of places that can't be read.
Status CountRecords(const CountOptions& options, RecordCounts& counts, Reporter& reporter);

}  // namespace quillory
