#include <quillory/exchange/Output.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>

namespace quillory {
namespace {

// Checks records as they come, and hands the findings to the report.
class CheckRun {
public:
    CheckRun(Severity failsOn, Inspector& inspector, CheckReport& report, Reporter& reporter)
        : failsOn_(failsOn), inspector_(inspector), report_(report), reporter_(reporter) {}

    void Take(const Item& item) {
        if (item.fault && !item.continues) TakeFault(item);
        if (item.kind != kItemRecord) return;
        NoteFile();
        inspector_.Inspect(item.record, item.number, remarks_);
        const auto fails = [this](const Remark& remark) { return remark.severity <= failsOn_; };
        if (std::ranges::any_of(remarks_, fails)) status_ = kStatusFindings;
        const CheckedRecord record{item, remarks_};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    void Finish() { report_.Finish(totals_); }

    // Findings, if there was any, or damage.
    Status Result() const { return status_; }

private:
    void TakeFault(const Item& item) {
        reporter_.SayFault(item);
        status_ = kStatusFindings;
        if (item.kind == kItemDamaged) ++totals_.damaged;
        if (item.kind != kItemRecord) report_.TakeDamage(item);
    }

    void NoteFile() {
        if (reporter_.File() == file_) return;
        file_ = reporter_.File();
        inspector_.BeginFile(file_);
    }

    Severity failsOn_;
    Inspector& inspector_;
    CheckReport& report_;
    Reporter& reporter_;
    std::string file_;
    std::vector<Remark> remarks_;
    CheckTotals totals_;
    Status status_ = kStatusWell;
};

}  // namespace

Status CheckFiles(CheckFilesOptions options, Checker& checker, Inspector& inspector,
                  CheckReport& report, Reporter& reporter) {
    std::vector<Finding> findings;
    options.input.where.isValid = [&](const Record& record) {
        return IsValidUnder(checker, record, findings);
    };
    CheckRun run(options.failsOn, inspector, report, reporter);
    try {
        const Status read = ReadFiles(options.input, reporter, [&run](const Item& item) {
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
