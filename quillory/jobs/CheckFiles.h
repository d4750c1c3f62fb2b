#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/ReadFiles.h>

namespace quillory {

// Checks the records of files, and hands the findings to the report. Result: findings, if there was
// any, or damage. Throws FileError.
Status CheckFiles(InputOptions input, Checker& checker, CheckReport& report, Reporter& reporter);

}  // namespace quillory
