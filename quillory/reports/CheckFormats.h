#pragma once

#include <quillory/reports/CheckReports.h>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// A format of reports, and what makes them.
struct CheckFormatRow {
    CheckFormat format;
    std::string_view name;
    std::array<std::string_view, 2> endings;  // of the names of outputs, also before ".gz"
    std::unique_ptr<CheckReport> (*make)(std::unique_ptr<Output>, const CheckReportOptions&,
                                         Reporter&);
};

std::vector<std::pair<std::string, CheckFormat>> NamesOf(std::span<const CheckFormatRow> formats);

// A report in the format that the options name, or else in that of the output's name; an output
// with any other name has the first one. Throws FileError if the output can't be opened.
std::unique_ptr<CheckReport> MakeReportIn(std::span<const CheckFormatRow> formats,
                                          const CheckReportOptions& options, Reporter& reporter);

}  // namespace quillory
