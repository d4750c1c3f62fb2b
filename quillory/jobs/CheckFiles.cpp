#include <quillory/exchange/Output.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>

namespace quillory {
namespace {

// Checks records as they come, and hands the findings to the report.
class CheckRun {
public:
    CheckRun(Checker& checker, CheckReport& report, Reporter& reporter)
        : checker_(checker), report_(report), reporter_(reporter) {}

    void Take(const Item& item) {
        if (item.fault && !item.continues) TakeFault(item);
        if (item.kind != kItemRecord) return;
        checker_.Check(item.record, findings_);
        if (!findings_.empty()) status_ = kStatusFindings;
        const CheckedRecord record{item, findings_, checker_.GetPolicy().VerdictOf(findings_)};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    void Finish() { report_.Finish(totals_, checker_.GetPolicy()); }

    // Findings, if there was any, or damage.
    Status Result() const { return status_; }

private:
    void TakeFault(const Item& item) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
        if (item.kind == kItemDamaged) ++totals_.damaged;
        if (item.kind != kItemRecord) report_.TakeDamage(item);
    }

    Checker& checker_;
    CheckReport& report_;
    Reporter& reporter_;
    std::vector<Finding> findings_;
    CheckTotals totals_;
    Status status_ = kStatusWell;
};

}  // namespace

Status CheckFiles(InputOptions input, Checker& checker, CheckReport& report, Reporter& reporter) {
    std::vector<Finding> findings;
    input.where.isValid = [&](const Record& record) {
        return IsValidUnder(checker, record, findings);
    };
    CheckRun run(checker, report, reporter);
    try {
        const Status read = ReadFiles(input, reporter, [&run](const Item& item) {
            run.Take(item);
            return true;
        });
        run.Finish();
        return std::max(read, run.Result());
    } catch (const ClosedPipe&) {
        return run.Result();
    }
}

}  // namespace quillory
