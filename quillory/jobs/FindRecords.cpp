#include <quillory/exchange/Output.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/FindRecords.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>

namespace quillory {
namespace {

class FindRun {
public:
    FindRun(const FindOptions& options, FindReport& report, Reporter& reporter)
        : options_(options),
          report_(report),
          reporter_(reporter),
          filter_(options.input.where, options.input.charset) {}

    void Take(const Item& item) {
        if (item.fault && !item.continues) {
            reporter_.SayFault(item);
            damage_ = kStatusFindings;
        }
        if (item.kind != kItemRecord || !filter_.Takes(item.record)) return;
        ++found_;
        if (!options_.onlyCount) report_.TakeRecord(item, filter_.HitsIn(item.record));
    }

    void Finish() { report_.Finish(found_); }

    Status Result() const { return found_ == 0 ? kStatusFindings : damage_; }

private:
    const FindOptions& options_;
    FindReport& report_;
    Reporter& reporter_;
    RecordFilter filter_;
    std::uint64_t found_ = 0;
    Status damage_ = kStatusWell;
};

}  // namespace

Status FindRecords(const FindOptions& options, FindReport& report, Reporter& reporter) {
    if (options.input.where.AsksForAll()) {
        throw UsageError(
            "what to look for is missing: --where EXPRESSION, such as --where '245a contains "
            "\"rivers\"'");
    }
    FindRun run(options, report, reporter);
    try {
        const Status read = ReadAllItems(options.input, reporter, [&run](const Item& item) {
            if (item.kind != kItemFrame) run.Take(item);
            return true;
        });
        run.Finish();
        return std::max(read, run.Result());
    } catch (const ClosedPipe&) {
        return run.Result();
    }
}

}  // namespace quillory
