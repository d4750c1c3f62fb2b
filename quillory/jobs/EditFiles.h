#pragma once

#include <quillory/jobs/EditReport.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/jobs/WriteRecords.h>

#include <functional>
#include <string>

namespace quillory {

struct EditFilesOptions {
    InputOptions input;
    OutputOptions output;  // a dry run does without
    bool isDryRun = false;
};

// Makes the task once more, for another thread.
using EditTaskMaker = std::function<EditTask()>;

// Edits the records of files, writes all of them, and tells the report what was changed. Work is
// shared out only if there can be more tasks. Result: kStatusFindings for damage, for rejects, for
// records that could not be edited, and for changes that a dry run would make. Throws FileError and
// UsageError.
Status EditFiles(const EditFilesOptions& options, EditTask task, EditReport& report,
                 Reporter& reporter, const EditTaskMaker& makeTask = {});

// Says why a record was not edited.
void SayRefused(const Item& item, const Fault& why, Reporter& reporter);

}  // namespace quillory
