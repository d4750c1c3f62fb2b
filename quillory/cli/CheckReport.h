#pragma once

#include <quillory/checks/Finding.h>
#include <quillory/checks/Policy.h>
#include <quillory/cli/Reporter.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Record.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// One record, and what was found on it.
struct CheckedRecord {
    const Item& item;
    const std::vector<Finding>& findings;
    Verdict verdict;
};

// Records by verdict.
using VerdictCounts = std::array<std::uint64_t, 3>;

// What a whole run found.
struct CheckTotals {
    std::uint64_t records = 0;
    std::uint64_t damaged = 0;  // that can't be read
    VerdictCounts verdicts{};
    std::map<zorby::E_ERROR_CODE, std::uint64_t> findings;
    std::map<std::string, VerdictCounts, std::less<>> materials;

    void Count(const CheckedRecord& record);
};

// Writes what a check finds, as it finds it.
class CheckReport {
public:
    virtual ~CheckReport() = default;

    virtual void TakeRecord(const CheckedRecord& record) = 0;
    // Bytes that are no record.
    virtual void TakeDamage(const Item& item) = 0;
    // The end of the report, for which there are no more records.
    virtual void Finish(const CheckTotals& totals, const Policy& policy) = 0;
};

enum CheckFormat : std::int32_t { kCheckByName, kCheckText, kCheckJsonl, kCheckHtml };

struct CheckReportOptions {
    CheckFormat format = kCheckByName;  // by the name of the output, or text
    std::string output = "-";
    std::uint64_t rows = 5000;  // findings that a page shows, 0 for all
};

// The report asks the reporter for the file in hand, and says there what it can't show. Throws
// FileError if the output can't be opened.
std::unique_ptr<CheckReport> MakeCheckReport(const CheckReportOptions& options, Reporter& reporter);

std::unique_ptr<CheckReport> MakeTextCheckReport(std::unique_ptr<Output> output,
                                                 Reporter& reporter);
std::unique_ptr<CheckReport> MakeJsonlCheckReport(std::unique_ptr<Output> output,
                                                  Reporter& reporter);
std::unique_ptr<CheckReport> MakeHtmlCheckReport(std::unique_ptr<Output> output, std::uint64_t rows,
                                                 Reporter& reporter);

// A kind of finding in a few words, without field or subfield of one record.
std::string KindText(zorby::E_ERROR_CODE code);
// "books", "authority data".
std::string MaterialText(std::string_view leader);
// "ok", "warnings", "errors".
std::string_view VerdictText(Verdict verdict);

}  // namespace quillory
