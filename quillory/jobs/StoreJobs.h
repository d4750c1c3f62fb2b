#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/jobs/WriteRecords.h>

#include <string>

namespace quillory {

struct AddOptions {
    InputOptions input;
    std::string rejects;  // file for the bytes of what is not added; empty for none
};

// Adds the records of files to the store. Throws FileError and UsageError.
Status AddRecordsToStore(const AddOptions& options, Reporter& reporter);

// Deletes records from the store in one transaction, and names those that are not there and those
// that are left because somebody is changing them in a window. Throws FileError, and UsageError if
// all records are asked for.
Status DeleteRecordsFromStore(const StoredChoice& choice, Reporter& reporter);

struct StoreExportOptions {
    StoredChoice choice;
    OutputOptions output;
};

// Writes records of the store to a file. Throws FileError and UsageError.
Status ExportRecordsOfStore(const StoreExportOptions& options, Reporter& reporter);

}  // namespace quillory
