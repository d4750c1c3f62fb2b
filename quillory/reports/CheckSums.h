#pragma once

#include <quillory/reports/CheckReports.h>
#include <quillory/text/JsonWriter.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What checks found, as sums.
struct CheckSums {
    struct File {
        std::string name;
        VerdictCounts verdicts{};
        std::uint64_t damaged = 0;
    };

    CheckTotals totals;
    std::vector<File> files;
};

std::string ToText(const CheckSums& sums);
void ToJson(const CheckSums& sums, JsonWriter& json);

// The formats of a report on several checks, whose text and JSON are sums.
std::vector<std::pair<std::string, CheckFormat>> SumsFormatNames();
// As MakeCheckReport.
std::unique_ptr<CheckReport> MakeSumsReport(const CheckReportOptions& options, Reporter& reporter);

}  // namespace quillory
