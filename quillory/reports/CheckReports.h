#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/jobs/Reporter.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

enum CheckFormat : std::int32_t {
    kCheckByName,
    kCheckText,
    kCheckJsonl,
    kCheckHtml,
    kCheckSarif,
    kCheckSumsText,
    kCheckSumsJson
};

struct CheckReportOptions {
    CheckFormat format = kCheckByName;  // by the name of the output, or text
    std::string output = "-";
    std::uint64_t rows = 5000;  // findings that a page shows, 0 for all
    bool showsEach = false;     // in a text; else the first few of each rule
    // Those of the run beside all others, for a report that lists rules.
    std::span<const Rule> ownRules = {};
};

// The formats of a check that the option names.
std::vector<std::pair<std::string, CheckFormat>> CheckFormatNames();

// The report asks the reporter for the file in hand. Throws FileError if the output can't be
// opened.
std::unique_ptr<CheckReport> MakeCheckReport(const CheckReportOptions& options, Reporter& reporter);

// A report in each format.
std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& options,
                                                 Reporter& reporter);
std::unique_ptr<CheckReport> MakeJsonlCheckReport(std::unique_ptr<Output> output,
                                                  const CheckReportOptions& options,
                                                  Reporter& reporter);
std::unique_ptr<CheckReport> MakeHtmlCheckReport(std::unique_ptr<Output> output,
                                                 const CheckReportOptions& options,
                                                 Reporter& reporter);
std::unique_ptr<CheckReport> MakeSarifCheckReport(std::unique_ptr<Output> output,
                                                  const CheckReportOptions& options,
                                                  Reporter& reporter);

// "ok", "warnings", "errors".
std::string_view VerdictText(Verdict verdict);

}  // namespace quillory
