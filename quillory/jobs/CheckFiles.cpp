#include <quillory/exchange/Output.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

// Checks records as they come, and hands the findings to the report.
class CheckRun {
public:
    CheckRun(Severity failsOn, Inspector& inspector, CheckReport& report, Reporter& reporter)
        : failsOn_(failsOn), inspector_(inspector), report_(report), reporter_(reporter) {
        inspector_.LimitWords(report_.FindingsInWords());
    }

    void Take(const Item& item) {
        SayFault(item, reporter_);
        if (item.kind == kItemRecord) inspector_.Look(item.record, look_);
        TakeLooked(item, look_);
    }

    std::unique_ptr<ItemWorker> MakeWorkerWith(Inspector& inspector, Reporter& own, Steps& steps) {
        inspector.LimitWords(report_.FindingsInWords());
        return MakeWorker([this, &inspector, &own, &steps](const Item& item) {
            SayFault(item, own);
            const auto look = std::make_shared<RecordLook>();
            if (item.kind == kItemRecord) inspector.Look(item.record, *look);
            steps.emplace_back([this, &item, look] { TakeLooked(item, *look); });
        });
    }

    void Finish() { report_.Finish(totals_); }

    // Findings, if there was any, or damage.
    Status Result() const { return status_; }

private:
    static bool HasFault(const Item& item) { return item.fault && !item.continues; }

    static void SayFault(const Item& item, Reporter& reporter) {
        if (HasFault(item)) reporter.SayFault(item);
    }

    void TakeLooked(const Item& item, RecordLook& look) {
        if (HasFault(item)) CountFault(item);
        if (item.kind != kItemRecord) return;
        NoteFile();
        inspector_.Compare(item.number, look);
        const auto fails = [this](const Remark& remark) { return remark.severity <= failsOn_; };
        if (std::ranges::any_of(look.remarks, fails)) status_ = kStatusFindings;
        const CheckedRecord record{item, look.remarks, look.numbers};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    void CountFault(const Item& item) {
        status_ = kStatusFindings;
        if (item.kind == kItemDamaged) ++totals_.damaged;
        if (item.kind != kItemRecord) report_.TakeDamage(item, FaultText(*item.fault));
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
    RecordLook look_;
    CheckTotals totals_;
    Status status_ = kStatusWell;
};

}  // namespace

Status CheckFiles(CheckFilesOptions options, const Checker& checker, Inspector& inspector,
                  CheckReport& report, Reporter& reporter, const InspectorMaker& makeInspector) {
    options.input.where.isValid = ValidityUnder(checker.GetOptions());
    CheckRun run(options.failsOn, inspector, report, reporter);
    ItemJob job{[&run](const Item& item) {
        run.Take(item);
        return true;
    }};
    if (makeInspector) {
        job.makeWorker = [&](Reporter& own, Steps& steps) {
            return run.MakeWorkerWith(makeInspector(), own, steps);
        };
    }
    try {
        const Status read = ReadFiles(options.input, reporter, job);
        run.Finish();
        return std::max(read, run.Result());
    } catch (const ClosedPipe&) {
        return run.Result();
    }
}

}  // namespace quillory
