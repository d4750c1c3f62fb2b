#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/RepairReport.h>
#include <quillory/jobs/WriteRecords.h>

namespace quillory {

struct RepairFilesOptions {
    InputOptions input;
    OutputOptions output;  // of no account in a dry run
    RepairOptions repair;
    bool isDryRun = false;
};

// Puts the coded control fields of the records of files right, and tells the report what was
// repaired. The standard workforms are in force. Result: findings for damage, rejects and what had
// to be left as it was, and for repairs that a dry run would make. Throws FileError and UsageError.
Status RepairFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                   Reporter& reporter);

}  // namespace quillory
