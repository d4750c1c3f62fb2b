#pragma once

#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

struct ExportWorkformsOptions {
    std::string file;                // "-" for standard output
    std::vector<std::string> names;  // or IDs; none for all of the user's
};

// Writes workforms of the user's to a file. Throws FileError and UsageError.
Status ExportWorkforms(const ExportWorkformsOptions& options, const Reporter& reporter);

}  // namespace quillory
