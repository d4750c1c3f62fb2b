#include <quillory/exchange/ItemMemory.h>
#include <quillory/jobs/RepairFiles.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace quillory {
namespace {

// Reads all items to the end, and says what is damaged.
class DryRun {
public:
    Status Run(const ItemSource& source, Reporter& reporter) {
        const ItemJob job{[&](const Item& item) {
                              if (IsDamaged(item, reporter)) damage_ = kStatusFindings;
                              return true;
                          },
                          [&](Reporter& own, Steps& steps) {
                              return MakeWorker([this, &own, &steps](const Item& item) {
                                  if (!IsDamaged(item, own)) return;
                                  steps.emplace_back([this] { damage_ = kStatusFindings; });
                              });
                          }};
        const Status read = source(job);
        return std::max(read, damage_);
    }

private:
    static bool IsDamaged(const Item& item, Reporter& reporter) {
        const bool isDamaged = item.kind != kItemRecord || item.fault;
        if (isDamaged && !item.continues) reporter.SayFault(item);
        return isDamaged;
    }

    Status damage_ = kStatusWell;
};

// Takes what became of a record, in the order of the input.
using RepairTaker = std::function<void(const Item& item, const std::vector<Repair>& repairs)>;

// Repairs records, and hands them on.
class RepairWorker : public ItemWorker {
public:
    RepairWorker(RecordRepairer repairer, RepairTaker take, Steps& steps,
                 std::unique_ptr<ItemWorker> next)
        : repairer_(std::move(repairer)),
          take_(std::move(take)),
          steps_(steps),
          next_(std::move(next)) {}

    void Take(Item& item) override {
        if (item.kind == kItemRecord) PutRight(item);
        next_->Take(item);
    }
    void EndBatch() override { next_->EndBatch(); }

private:
    void PutRight(Item& item) {
        const auto& repairs = repairer_.PutRight(item.record);
        steps_.emplace_back([&take = take_, kept = std::make_shared<KeptItem>(item), repairs] {
            take(kept->Get(), repairs);
        });
    }

    RecordRepairer repairer_;
    RepairTaker take_;
    Steps& steps_;
    std::unique_ptr<ItemWorker> next_;
};

}  // namespace

Status RepairFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                   Reporter& reporter) {
    RecordRepairer repairer(lists, options.repair);
    RepairTotals totals;
    const RepairTaker takeRepairs = [&](const Item& item, const std::vector<Repair>& repairs) {
        totals.Count(repairs);
        report.TakeRecord(item, repairs);
    };
    const ItemSource repaired = [&](const ItemJob& job) {
        const ItemJob repairing{[&](Item& item) {
                                    if (item.kind == kItemRecord)
                                        takeRepairs(item, repairer.PutRight(item.record));
                                    return job.take(item);
                                },
                                [&](Reporter& own, Steps& steps) {
                                    return std::make_unique<RepairWorker>(
                                        RecordRepairer(lists, options.repair), takeRepairs, steps,
                                        job.makeWorker(own, steps));
                                }};
        return ReadFiles(options.input, reporter, repairing);
    };
    OutputOptions output = options.output;
    output.completeBeside = [&] { report.Complete(totals); };
    const Status done = options.isDryRun
                            ? DryRun().Run(repaired, reporter)
                            : WriteItems(repaired, options.input.charset, output, reporter);
    if (options.isDryRun) report.Complete(totals);
    report.Finish(totals, options.isDryRun);
    const bool hasFindings = totals.left > 0 || (options.isDryRun && totals.repaired > 0);
    return std::max(done, hasFindings ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
