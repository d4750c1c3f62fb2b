#pragma once

#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

struct WorkformExportOptions {
    std::string file;                // "-" for standard output
    std::vector<std::string> names;  // or IDs; none for all of the user's
};

// Writes workforms of the user's to a file. Throws FileError and UsageError.
Status ExportWorkforms(const WorkformExportOptions& options, const Reporter& reporter);

struct WorkformImportOptions {
    std::string file;    // "-" for standard input
    bool force = false;  // replaces workforms of the user's of the same names
};

// Adds the workforms of an exported file to the store, all of them or none. Throws FileError.
Status ImportWorkforms(const WorkformImportOptions& options, const Reporter& reporter);

}  // namespace quillory
