#include <quillory/exchange/ItemMemory.h>
#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/RepairFiles.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace quillory {
namespace {

// Reads all items to the end, and says what is damaged.
class DryRun {
public:
    Status Run(const ItemSource& source, Reporter& reporter) {
        const ItemJob job{[&](const Item& item) {
                              if (DamageKeeper::Say(item, reporter)) damage_ = kStatusFindings;
                              return true;
                          },
                          [&](Reporter& own, Steps& steps) {
                              return MakeWorker([this, &own, &steps](const Item& item) {
                                  if (!DamageKeeper::Say(item, own)) return;
                                  steps.emplace_back([this] { damage_ = kStatusFindings; });
                              });
                          }};
        const Status read = source(job);
        return std::max(read, damage_);
    }

private:
    Status damage_ = kStatusWell;
};

// What became of records, in the order of the input.
class Outcome {
public:
    explicit Outcome(RepairReport& report) : report_(report), counter_(NewCounter()) {}

    void Take(const Item& item, const std::vector<Repair>& repairs) {
        counter_.Count(repairs);
        if (report_.Needs(repairs)) report_.TakeRecord(item, repairs);
    }
    void Add(const RepairCounter& later) { counter_.Add(later); }

    // For a part of the records.
    RepairCounter NewCounter() const { return RepairCounter(report_.NeedsRows()); }
    RepairReport& Report() const { return report_; }
    RepairTotals Totals() const { return counter_.Totals(); }

private:
    RepairReport& report_;
    RepairCounter counter_;
};

// Repairs records, and hands them on.
class RepairWorker : public HandingWorker {
public:
    RepairWorker(RecordRepairer repairer, Outcome& outcome, Steps& steps,
                 std::unique_ptr<ItemWorker> next)
        : HandingWorker(std::move(next)),
          repairer_(std::move(repairer)),
          outcome_(outcome),
          steps_(steps),
          counter_(outcome.NewCounter()) {}

    void Take(Item& item) override {
        if (item.kind == kItemRecord) PutRight(item);
        HandOn(item);
    }
    void EndBatch() override {
        const auto counted =
            std::make_shared<RepairCounter>(std::exchange(counter_, outcome_.NewCounter()));
        steps_.emplace_back([&outcome = outcome_, counted] { outcome.Add(*counted); });
        HandingWorker::EndBatch();
    }

private:
    void PutRight(Item& item) {
        const auto& repairs = repairer_.PutRight(item.record);
        counter_.Count(repairs);
        RepairReport& report = outcome_.Report();
        if (!report.Needs(repairs)) return;
        const auto kept = std::make_shared<KeptItem>(item);
        steps_.emplace_back([&report, kept, repairs] { report.TakeRecord(kept->Get(), repairs); });
    }

    RecordRepairer repairer_;
    Outcome& outcome_;
    Steps& steps_;
    RepairCounter counter_;  // of this batch
};

}  // namespace

Status RepairFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                   Reporter& reporter) {
    RecordRepairer repairer(lists, options.repair);
    Outcome outcome(report);
    const ItemSource repaired = [&](const ItemJob& job) {
        const ItemJob repairing{[&](Item& item) {
                                    if (item.kind == kItemRecord) {
                                        outcome.Take(item, repairer.PutRight(item.record));
                                    }
                                    return job.take(item);
                                },
                                [&](Reporter& own, Steps& steps) {
                                    return std::make_unique<RepairWorker>(
                                        RecordRepairer(lists, options.repair), outcome, steps,
                                        job.makeWorker(own, steps));
                                }};
        return ReadFiles(options.input, reporter, repairing);
    };
    OutputOptions output = options.output;
    output.completeBeside = [&] { report.Complete(outcome.Totals()); };
    const Status done = options.isDryRun
                            ? DryRun().Run(repaired, reporter)
                            : WriteItems(repaired, options.input.charset, output, reporter);
    const RepairTotals totals = outcome.Totals();
    if (options.isDryRun) report.Complete(totals);
    report.Finish(totals, options.isDryRun);
    const bool hasFindings = totals.left > 0 || (options.isDryRun && totals.repaired > 0);
    return std::max(done, hasFindings ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
