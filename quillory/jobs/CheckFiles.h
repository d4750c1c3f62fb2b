#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/rules/Inspector.h>

namespace quillory {

struct CheckFilesOptions {
    InputOptions input;
    Severity failsOn = Severity::Warning;  // what counts as a finding in the result
};

// Holds the records of files against the rules, and hands what they say to the report. `checker`
// tells which records a condition takes for valid. Result: findings, if there was any of that
// weight, or damage. Throws FileError.
Status CheckFiles(CheckFilesOptions options, Checker& checker, Inspector& inspector,
                  CheckReport& report, Reporter& reporter);

}  // namespace quillory
