#pragma once

#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

struct ReportFilesOptions {
    std::vector<std::string> files;  // of lines of JSON; none, or "-", for standard input
    Severity failsOn = Severity::Warning;
    std::string memory = "256M";  // to sort numbers in, as ParseByteSize reads it
};

// Hands the results of checks, which stand in files of JSON lines, to a report, as one check of
// all their records would have: numbers that come twice are found in records of different files,
// too. The files are read twice; what can be read only once is kept in a temporary file meanwhile.
// Result: findings, if there was any of that weight, or damage. Throws FileError, with its
// line, for what is no result of a check.
Status ReportFiles(const ReportFilesOptions& options, CheckReport& report, Reporter& reporter);

}  // namespace quillory
