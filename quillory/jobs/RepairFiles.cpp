#include <quillory/jobs/RepairFiles.h>

#include <algorithm>
#include <functional>

namespace quillory {
namespace {

// Reads all items to the end, and says what is damaged.
Status DryRun(const ItemSource& source, Reporter& reporter) {
    Status damage = kStatusWell;
    const Status read = source([&](const Item& item) {
        const bool isDamaged = item.kind != kItemRecord || item.fault;
        if (isDamaged) {
            damage = kStatusFindings;
            if (!item.continues) reporter.SayFault(item);
        }
        return true;
    });
    return std::max(read, damage);
}

}  // namespace

Status RepairFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                   Reporter& reporter) {
    RecordRepairer repairer(lists, options.repair);
    RepairTotals totals;
    const auto putRight = [&](Item& item) {
        const auto& repairs = repairer.PutRight(item.record);
        totals.Count(repairs);
        report.TakeRecord(item, repairs);
    };
    const ItemSource repaired = [&](const auto& take) {
        return ReadFiles(options.input, reporter, [&](Item& item) {
            if (item.kind == kItemRecord) putRight(item);
            return take(item);
        });
    };
    OutputOptions output = options.output;
    output.completeBeside = [&] { report.Complete(totals); };
    const Status done = options.isDryRun
                            ? DryRun(repaired, reporter)
                            : WriteItems(repaired, options.input.charset, output, reporter);
    if (options.isDryRun) report.Complete(totals);
    report.Finish(totals, options.isDryRun);
    const bool hasFindings = totals.left > 0 || (options.isDryRun && totals.repaired > 0);
    return std::max(done, hasFindings ? kStatusFindings : kStatusWell);
}

}  // namespace quillory
