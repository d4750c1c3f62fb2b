#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RepairReport.h>
#include <quillory/jobs/WriteRecords.h>
#include <quillory/repair/RecordRepairer.h>

namespace quillory {

struct RepairFilesOptions {
    InputOptions input;
    OutputOptions output;  // a dry run does without
    RepairOptions repair;
    bool isDryRun = false;
};

// Puts the coded control fields of the records of files right, writes the records, and hands
// the repairs to the report. The standard workforms must be in force if the library is to have its
// way. Result: kStatusFindings for damage, for rejects, for what was left as it was, and for
// repairs that a dry run would make. Throws FileError and UsageError.
Status RepairFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                   Reporter& reporter);

}  // namespace quillory
