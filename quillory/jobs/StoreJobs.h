#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quillory {

using RecordIds = std::vector<std::int64_t>;

struct AddOptions {
    InputOptions input;
    std::string rejects;  // file for the bytes of what is not added; empty for none
};

// Adds the records of files to the store. Throws FileError and UsageError.
Status AddRecordsToStore(const AddOptions& options, Reporter& reporter);

// Deletes records from the store in one transaction, and names those that are not there. Throws
// FileError.
Status DeleteRecordsFromStore(const RecordIds& ids, Reporter& reporter);

struct StoreExportOptions {
    RecordIds ids;  // none for all
    OutputOptions output;
};

// Writes records of the store to a file. Throws FileError and UsageError.
Status ExportRecordsOfStore(const StoreExportOptions& options, Reporter& reporter);

}  // namespace quillory
