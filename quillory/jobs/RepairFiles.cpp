#include <quillory/jobs/RepairFiles.h>

#include <algorithm>
#include <functional>

namespace quillory {
namespace {

// Hands on the records of the files repaired.
class RepairedFiles {
public:
    RepairedFiles(const RepairFilesOptions& options, const CodeLists& lists, RepairReport& report,
                  Reporter& reporter)
        : options_(options),
          reporter_(reporter),
          repairer_(lists, options.repair),
          report_(report) {}

    Status Read(const std::function<bool(Item&)>& take) {
        return ReadFiles(options_.input, reporter_, [&](Item& item) {
            if (item.kind == kItemRecord) Repair(item);
            return take(item);
        });
    }

    Status Finish() {
        report_.Finish(totals_, options_.isDryRun);
        const bool hasFindings = totals_.left > 0 || (options_.isDryRun && totals_.repaired > 0);
        return hasFindings ? kStatusFindings : kStatusWell;
    }

private:
    void Repair(Item& item) {
        const auto& repairs = repairer_.Take(item.record);
        totals_.Count(repairs);
        report_.TakeRecord(item, repairs);
    }

    const RepairFilesOptions& options_;
    Reporter& reporter_;
    RecordRepairer repairer_;
    RepairReport& report_;
    RepairTotals totals_;
};

Status DryRun(RepairedFiles& files, Reporter& reporter) {
    Status damage = kStatusWell;
    const Status read = files.Read([&](Item& item) {
        const bool isDamaged = item.kind != kItemRecord || !item.reason.empty();
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
    RepairedFiles files(options, lists, report, reporter);
    const ItemSource source = [&](const auto& take) { return files.Read(take); };
    const Status done = options.isDryRun
                            ? DryRun(files, reporter)
                            : WriteItems(source, options.input.charset, options.output, reporter);
    return std::max(done, files.Finish());
}

}  // namespace quillory
