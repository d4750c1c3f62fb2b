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

// Puts copies into the records of files, and writes the records that the policy lets leave. Labels
// and bytes of records that stay as they are are verified too. Settings are put back. Throws
// FileError and UsageError.
Status ExportFiles(ExportOptions options, Reporter& reporter);

}  // namespace quillory
