#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/PrintRecords.h>
#include <quillory/store/HomeFolder.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quillory {
namespace {

using ItemMaker = std::function<void(const Item& item, const PrintItem& made)>;

bool IsOfStore(const PrintSource& source) {
    const bool isStored = source.isStored || !source.ids.empty();
    if (isStored && !source.input.files.empty()) {
        throw UsageError("records come from files or from the store (--stored, --id), not both");
    }
    return isStored;
}

// Makes the cards or labels of all records that are asked for.
Status MakeAll(const PrintSource& source, PrintWork& work, const ItemMaker& take,
               Reporter& reporter) {
    DamageKeeper damage({}, reporter);
    Status status = kStatusWell;
    const auto takeItem = [&](Item& item) {
        if (!damage.Take(item)) return true;
        const std::vector<PrintItem> made = work.Make(item.record);
        if (made.empty()) {
            reporter.Say(item, {work.ReasonForNone()});
            status = kStatusFindings;
        }
        for (const PrintItem& one : made) take(item, one);
        return true;
    };
    const Status read =
        IsOfStore(source)
            ? ReadStored(OpenStoreToRead(), {source.ids, source.input.where}, reporter, takeItem)
            : ReadFiles(source.input, reporter, takeItem);
    return std::max({read, status, damage.Result()});
}

// Lays items out for a target and counts the pieces of paper.
class Printer {
public:
    Printer(const PrintChoice& choice, const PrintWork& work, PrintTarget& target,
            Reporter& reporter)
        : noun_(NounOf(choice.kind)), work_(work), target_(target), reporter_(reporter) {
        target_.Begin(work_.SheetOf());
    }

    void Take(const PrintItem& item) {
        const std::vector<Panel> panels = work_.LayOut(item, target_.Setter());
        panels_ += panels.size();
        if (std::ranges::any_of(panels, &Panel::lacksRoom)) {
            const Fault fault{FaultCode::kNoRoomToPrint, {}, item.controlNumber, noun_};
            reporter_.SayCounted(FaultHeading(fault.code), FaultReason(fault));
            status_ = kStatusFindings;
        }
        target_.Take(item, panels);
    }

    Status Finish() {
        status_ = std::max(status_, target_.Finish(reporter_));
        const std::string where = target_.Summary();
        if (!reporter_.Quiet() && !where.empty()) {
            reporter_.Say(Counted(panels_, noun_) + where);
        }
        return status_;
    }

private:
    std::string noun_;
    const PrintWork& work_;
    PrintTarget& target_;
    Reporter& reporter_;
    std::uint64_t panels_ = 0;
    Status status_ = kStatusWell;
};

Status WalkQueue(PrintQueue& queue, const std::function<void(const QueuedItem& queued)>& take,
                 const Reporter& reporter) {
    Status status = kStatusWell;
    const auto takeOne = [&take](const QueuedItem& queued) {
        take(queued);
        return true;
    };
    queue.ForEach(takeOne, [&](const QueueDamage& damage) {
        reporter.Say(queue.Path() + ": item " + std::to_string(damage.number) + " at byte " +
                     std::to_string(damage.offset) + ": " + damage.reason);
        status = kStatusFindings;
    });
    return status;
}

}  // namespace

Status PrintRecords(const PrintRecordsOptions& options, PrintTarget& target, Reporter& reporter) {
    const auto work = MakePrintWork(options.choice, options.source.input.charset);
    Printer printer(options.choice, *work, target, reporter);
    const auto take = [&printer](const Item&, const PrintItem& made) { printer.Take(made); };
    const Status status = MakeAll(options.source, *work, take, reporter);
    return std::max(status, printer.Finish());
}

Status QueueRecords(const PrintRecordsOptions& options, Reporter& reporter) {
    const PrintQueue::Kind kind = options.choice.kind;
    const auto work = MakePrintWork(options.choice, options.source.input.charset);
    std::error_code failed;  // the queue can't be opened then
    std::filesystem::create_directories(HomeFolder(), failed);
    FontTypesetter typesetter;
    PrintQueue queue(kind, true);
    queue.BeginAdding();
    std::uint64_t added = 0;
    const auto take = [&](const Item&, const PrintItem& made) {
        const auto panels = static_cast<int>(work->LayOut(made, typesetter).size());
        queue.Add({made, panels});
        added += static_cast<std::uint64_t>(panels);
    };
    const Status status = MakeAll(options.source, *work, take, reporter);
    queue.FinishAdding();
    if (!reporter.Quiet()) {
        reporter.Say(Counted(added, NounOf(kind)) + " added to the queue, which has " +
                     std::to_string(queue.Count()));
    }
    return status;
}

Status PrintQueued(const PrintChoice& choice, PrintTarget& target, Reporter& reporter) {
    const auto work = MakePrintWork(choice, kCharsetAuto);
    PrintQueue queue(choice.kind, false);
    Printer printer(choice, *work, target, reporter);
    const auto take = [&printer](const QueuedItem& queued) { printer.Take(queued.item); };
    const Status status = WalkQueue(queue, take, reporter);
    return std::max(status, printer.Finish());
}

Status ListQueue(PrintQueue::Kind kind, const std::function<void(const QueuedItem& queued)>& take,
                 Reporter& reporter) {
    LoadSettings();
    PrintQueue queue(kind, false);
    return WalkQueue(queue, take, reporter);
}

Status ClearQueue(PrintQueue::Kind kind, Reporter& reporter) {
    LoadSettings();
    if (!PrintQueue::IsThere(kind)) {
        reporter.Say("the queue is empty");
        return kStatusWell;
    }
    if (PrintQueue::Delete(kind)) {
        if (!reporter.Quiet()) reporter.Say("the " + NounOf(kind) + " queue was deleted");
        return kStatusWell;
    }
    reporter.Say("the " + NounOf(kind) + " queue was not deleted");
    return kStatusFindings;
}

}  // namespace quillory
