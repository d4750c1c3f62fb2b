#pragma once

#include <quillory/jobs/ReadFiles.h>

#include <string>
#include <vector>

namespace quillory {

// A column for each place, and its values in one record, in UTF-8.
using TableColumns = std::vector<std::string>;
using TableValues = std::vector<std::vector<std::string>>;

// Is given what is taken out of records.
class ValueTable {
public:
    virtual ~ValueTable() = default;

    // Comes once, first.
    virtual void Begin(const TableColumns& columns) = 0;
    virtual void TakeRecord(const TableValues& values) = 0;
    // Comes once, after the last record.
    virtual void Finish() = 0;
};

struct ExtractOptions {
    InputOptions input = {};
    std::string fields = {};  // places, as ParsePlaceSet reads them: a column for each
    std::string rejects = {};
};

// Hands the values at places of the records of files to a table. Throws FileError and UsageError,
// the latter before the table is begun.
Status ExtractFiles(const ExtractOptions& options, ValueTable& table, Reporter& reporter);

}  // namespace quillory
