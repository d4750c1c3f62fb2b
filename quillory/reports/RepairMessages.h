#pragma once

#include <quillory/jobs/RepairReport.h>
#include <quillory/jobs/Reporter.h>
#include <quillory/reports/RepairWords.h>

#include <memory>
#include <string>

namespace quillory {

// The file that the report of a repair is written to: a page if its name ends in ".html", else a
// line of JSON for each repair, with bytes beyond ASCII as the characters of the same numbers. Null
// for an empty path. The file has its name only once the report is finished. Keeps the references.
// Throws FileError.
std::unique_ptr<RepairReport> MakeRepairFile(const std::string& path, const CodeLists& lists,
                                             const Reporter& reporter);

// Says what a repair did in messages: a table by class and element at the end, and before that what
// was left, or, if the reporter says all, every repair. Hands all on to a file's report.
class RepairMessages : public RepairReport {
public:
    // Keeps the references.
    RepairMessages(std::unique_ptr<RepairReport> file, const CodeLists& lists, Reporter& reporter)
        : words_(lists), reporter_(reporter), file_(std::move(file)) {}

    bool Needs(const std::vector<Repair>& repairs) const override;
    bool NeedsRows() const override { return file_ != nullptr || !reporter_.Quiet(); }
    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override;
    void Complete(const RepairTotals& totals) override;
    void Finish(const RepairTotals& totals, bool isDryRun) override;

private:
    void SayTotals(const RepairTotals& totals, bool isDryRun) const;

    RepairWords words_;
    Reporter& reporter_;
    std::unique_ptr<RepairReport> file_;
};

// The table of what was repaired, a line for each row.
std::string TableOf(const RepairTotals& totals, const RepairWords& words);

}  // namespace quillory
