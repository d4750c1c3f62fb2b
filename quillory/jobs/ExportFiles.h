#pragma once

#include <quillory/jobs/ExportHoldings.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RecordPolicy.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {

struct ExportOptions {
    InputOptions input;
    OutputOptions output;
    PolicyOptions policy;
    HoldingsOptions holdings;
};

// Puts the copies into the records of files, and writes those that the policy lets leave. What they
// are written from is verified. Throws FileError and UsageError.
Status ExportFiles(ExportOptions options, Reporter& reporter);

}  // namespace quillory
