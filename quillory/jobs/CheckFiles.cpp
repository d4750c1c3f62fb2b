#include <quillory/exchange/Output.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/LookedItems.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace quillory {
namespace {

bool HasFault(const Item& item) {
    return item.fault && !item.continues;
}

// Looks at an item by itself.
void Look(const Item& item, Inspector& inspector, Reporter& reporter, RecordLook& look) {
    if (HasFault(item)) reporter.SayFault(item);
    if (item.kind == kItemRecord) {
        inspector.Look(item.record, look);
    } else {
        look = {};
    }
}

// Hands the findings on items to the report, in their order.
class CheckRun {
public:
    CheckRun(Severity failsOn, Inspector& inspector, CheckReport& report, Reporter& reporter)
        : failsOn_(failsOn), inspector_(inspector), report_(report), reporter_(reporter) {
        Employ(inspector);
    }

    // What the inspector counts is among the totals.
    void Employ(Inspector& inspector) {
        inspector.KeepOnly(report_.FindingsWanted());
        inspectors_.push_back(&inspector);
    }

    void Take(const Item& item) {
        Look(item, inspector_, reporter_, look_);
        TakeLooked(LookedItem::Of(item), look_);
    }

    void TakeLooked(const LookedItem& looked, RecordLook& look) {
        if (!looked.isSound && !TakeFault(*looked.item)) return;
        NoteFile();
        inspector_.Compare(looked.number, look);
        if (look.heaviest && *look.heaviest <= failsOn_) status_ = kStatusFindings;
        const CheckedRecord record{.item = looked.item != nullptr ? *looked.item : Named(looked),
                                   .remarks = look.remarks,
                                   .heaviest = look.heaviest,
                                   .numbers = look.numbers,
                                   .typeAndLevel = looked.typeAndLevel};
        totals_.Count(record);
        report_.TakeRecord(record);
    }

    // Whether an item has to stay until it is taken.
    bool Needs(const LookedItem& looked, const RecordLook& look) const {
        return !looked.isSound || !look.remarks.empty() || report_.NeedsRecords();
    }

    void Finish() {
        for (const Inspector* inspector : inspectors_) totals_.findings.Add(inspector->Counts());
        report_.Finish(totals_);
    }

    // Findings, if there was any, or damage.
    Status Result() const { return status_; }

private:
    // Whether the item is a record all the same.
    bool TakeFault(const Item& item) {
        if (HasFault(item)) CountFault(item);
        return item.kind == kItemRecord;
    }

    void CountFault(const Item& item) {
        status_ = kStatusFindings;
        if (item.kind == kItemDamaged) ++totals_.damaged;
        if (item.kind != kItemRecord) report_.TakeDamage(item, FaultText(*item.fault));
    }

    // A record that is not kept, by its name alone.
    const Item& Named(const LookedItem& looked) {
        named_.Begin(kItemRecord, looked.offset, {});
        named_.number = looked.number;
        if (!looked.controlNumber.empty()) {
            named_.record.fields.push_back({"001", looked.controlNumber});
        }
        return named_;
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
    std::vector<const Inspector*> inspectors_;
    std::string file_;
    RecordLook look_;
    Item named_;
    CheckTotals totals_;
    Status status_ = kStatusWell;
};

// Looks at items; the run does the rest, in a step for all items between which nothing else was
// left to be done.
class CheckWorker : public ItemWorker {
public:
    CheckWorker(CheckRun& run, Inspector& inspector, Reporter& reporter, Steps& steps)
        : run_(run), inspector_(inspector), reporter_(reporter), steps_(steps) {}

    void Take(Item& item) override {
        Look(item, inspector_, reporter_, look_);
        if (!looked_ || steps_.size() != stepsWithLooked_) BeginLooked();
        LookedItem looked = LookedItem::Of(item);
        keepsItem_ = run_.Needs(looked, look_);
        if (!keepsItem_) looked.item = nullptr;
        looked_->Add(looked, look_);
    }

    bool KeepsItems() const override { return keepsItem_; }

    void EndBatch() override { looked_.reset(); }

private:
    void BeginLooked() {
        looked_ = std::make_shared<LookedItems>();
        steps_.emplace_back([&run = run_, looked = looked_] {
            looked->ForEach(
                [&run](const LookedItem& item, RecordLook& look) { run.TakeLooked(item, look); });
        });
        stepsWithLooked_ = steps_.size();
    }

    CheckRun& run_;
    Inspector& inspector_;
    Reporter& reporter_;
    Steps& steps_;
    RecordLook look_;
    std::shared_ptr<LookedItems> looked_;  // of the last step; null before there is one
    std::size_t stepsWithLooked_ = 0;
    bool keepsItem_ = true;  // the last one
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
            Inspector& another = makeInspector();
            run.Employ(another);
            return std::make_unique<CheckWorker>(run, another, own, steps);
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
