#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {

struct ConvertOptions {
    InputOptions input;
    OutputOptions output;
};

// Carries the records of files between forms and character sets. Throws FileError and UsageError.
Status ConvertFiles(const ConvertOptions& options, Reporter& reporter);

}  // namespace quillory
