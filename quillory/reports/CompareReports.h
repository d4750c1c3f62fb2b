#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/CompareFiles.h>
#include <quillory/jobs/Reporter.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quillory {

enum CompareFormat : std::int32_t { kCompareByName, kCompareText, kCompareJsonl, kCompareHtml };

struct CompareReportOptions {
    CompareFormat format = kCompareByName;  // by the name of the output, or text
    std::string output = "-";
    std::uint64_t rows = 5000;  // of the table on a page, 0 for all
    bool colour = false;        // of text
};

// What two files differ in: lines of text as diff has them, a line of JSON for each record, or a
// page that stands alone. Says the totals to the reporter. Throws FileError if the output can't be
// opened.
std::unique_ptr<CompareReport> MakeCompareReport(const CompareReportOptions& options,
                                                 Reporter& reporter);

// A field as the reports show it, in one line without its end: "245 10  $a Title".
std::string FieldLine(std::string_view tag, std::string_view content, bool colour = false);

// "changed", "gone", "new", "no key".
std::string_view OutcomeText(CompareOutcome outcome);

// "12 records are the same, 1 changed, ...".
std::string TotalsText(const CompareTotals& totals);

std::unique_ptr<CompareReport> MakeHtmlCompareReport(const CompareReportOptions& options,
                                                     Reporter& reporter);

}  // namespace quillory
