#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/ReadFiles.h>
#include <quillory/rules/Inspector.h>

#include <functional>

namespace quillory {

struct CheckFilesOptions {
    InputOptions input;
    Severity failsOn = Severity::Warning;  // what counts as a finding in the result
};

// Gives another inspector of the same rules, one for each call. It stays until the report is
// finished.
using InspectorMaker = std::function<Inspector&()>;

// Holds the records of files against the rules, and hands what they say to the report. `checker`
// tells which records a condition takes for valid. Work is shared out only if there can be more
// inspectors. Result: findings, if there was any of that weight, or damage. Throws FileError.
Status CheckFiles(CheckFilesOptions options, const Checker& checker, Inspector& inspector,
                  CheckReport& report, Reporter& reporter,
                  const InspectorMaker& makeInspector = {});

}  // namespace quillory
