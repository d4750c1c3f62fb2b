#include <quillory/exchange/MarcWriter.h>
#include <quillory/jobs/EditFiles.h>
#include <quillory/jobs/EditStore.h>
#include <quillory/jobs/HeldRecords.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/store/Summary.h>
#include <quillory/text/Listed.h>

#include <algorithm>

namespace quillory {
namespace {

// The operations that changed a record, each once.
std::string WordsOf(const std::vector<Change>& changes) {
    std::vector<std::string_view> names;
    for (const Change& change : changes) {
        const bool isNew = std::ranges::find(names, change.operation) == names.end();
        if (isNew) names.push_back(change.operation);
    }
    return Listed(names);
}

// Puts edited records into the store.
class EditedRecords {
public:
    explicit EditedRecords(const Database& database)
        : history_(database), edit_(history_.NextEdit()), assembler_(kOversizeRefuse) {}

    void Put(const Item& item, const std::vector<Change>& changes) {
        assembler_.Assemble(item.record);
        history_.Replace(static_cast<std::int64_t>(item.number),
                         {summarizer_.Summarize(item.record), std::string(assembler_.Bytes())},
                         edit_, WordsOf(changes));
    }

private:
    RecordHistory history_;
    std::int64_t edit_;
    MarcAssembler assembler_;
    Summarizer summarizer_;
};

// Reads and edits records, and hands those that were changed to `put`.
class StoreEditor {
public:
    // `held` is null if there is no store.
    StoreEditor(EditTask task, EditReport& report, Reporter& reporter, HeldRecords* held)
        : editor_(std::move(task), {{}, true, report.WantsLines()}),
          report_(report),
          reporter_(reporter),
          held_(held) {}

    using Put = std::function<void(const Item& item, const std::vector<Change>& changes)>;

    void Take(Item& item, const Put& put) {
        if (item.kind != kItemRecord) {
            reporter_.SayFault(item);
            damage_ = kStatusFindings;
            return;
        }
        const Edit& edit = editor_.Carry(item.record, losses_);
        if (!edit.changes.empty() && IsHeld(item)) {
            totals_.Count({});
            return;
        }
        totals_.Count(edit);
        if (edit.refused) SayRefused(item, *edit.refused, reporter_);
        if (edit.changes.empty()) return;
        report_.TakeRecord(item, edit);
        put(item, edit.changes);
    }

    Status Finish(bool isDryRun) {
        if (!losses_.Empty()) {
            reporter_.Say("characters not carried as they were:\n" + losses_.Text("    "));
        }
        report_.Finish(totals_, isDryRun);
        const bool hasFindings =
            totals_.refused > 0 || losses_.Real() || (isDryRun && totals_.edited > 0);
        if (held_ != nullptr && held_->HadAny()) return std::max(damage_, kStatusFindings);
        return std::max(damage_, hasFindings ? kStatusFindings : kStatusWell);
    }

private:
    bool IsHeld(const Item& item) const {
        return held_ != nullptr && held_->Has(static_cast<std::int64_t>(item.number));
    }

    RecordEditor editor_;
    EditReport& report_;
    Reporter& reporter_;
    HeldRecords* held_;
    Losses losses_;
    EditTotals totals_;
    Status damage_ = kStatusWell;
};

// Lengths differ with every change and say nothing of it.
std::string WithoutLengths(std::string_view leader) {
    constexpr std::size_t kNumberSize = 5;
    std::string text(leader);
    for (const std::size_t first : {zorby::kLeaderLength, zorby::kLeaderBaseAddress}) {
        text.replace(first, kNumberSize, kNumberSize, '0');
    }
    return text;
}

std::vector<std::string> LinesOf(std::string_view bytes) {
    zorby::CommFormatFields fields;
    if (zorby::ReadCommFormat(bytes, fields)) return {};
    const std::string leader = WithoutLengths(fields.leader);
    return LinesInUtf8({leader, fields.fields, bytes});
}

// The changes of one record; `now` are its bytes of today.
void HandHistory(std::int64_t id, std::string_view now, const RecordHistory& history,
                 const std::function<void(const FormerVersion& version)>& take) {
    std::vector<std::string> after = LinesOf(now);
    for (FormerRecord& former : history.VersionsOf(id)) {
        FormerVersion version{id, former.replaced, std::move(former.change), LinesOf(former.bytes),
                              std::move(after)};
        take(version);
        after = std::move(version.before);
    }
}

std::string IdText(std::int64_t id) {
    return "record " + std::to_string(id);
}

}  // namespace

Status EditStore(const EditStoreOptions& options, EditTask task, EditReport& report,
                 Reporter& reporter) {
    const std::optional<Database> database = OpenStoreToRead();
    std::optional<HeldRecords> held;
    if (database) held.emplace(*database, reporter);
    StoreEditor editor(std::move(task), report, reporter, held ? &*held : nullptr);
    std::optional<Transaction> transaction;
    std::optional<EditedRecords> records;
    if (database && !options.isDryRun) {
        transaction.emplace(*database);
        records.emplace(*database);
    }
    const Status read = ReadStored(database, {options.ids, {}}, reporter, [&](Item& item) {
        editor.Take(item, [&](const Item& edited, const std::vector<Change>& changes) {
            if (records) records->Put(edited, changes);
        });
        return true;
    });
    report.Complete();
    if (transaction) transaction->Commit();
    return std::max(read, editor.Finish(options.isDryRun));
}

Status UndoEdits(const RecordIds& ids, const Reporter& reporter) {
    const std::optional<Database> database = OpenStoreToRead();
    Status status = kStatusWell;
    std::uint64_t undone = 0;
    if (database) {
        Transaction transaction(*database);
        RecordHistory history(*database);
        HeldRecords held(*database, reporter);
        for (const std::int64_t id : ids.empty() ? history.RecordsOfLastEdit() : ids) {
            if (held.Has(id)) {
                status = kStatusFindings;
            } else if (history.Undo(id)) {
                ++undone;
            } else {
                reporter.Say(IdText(id) + " has no change to be undone");
                status = kStatusFindings;
            }
        }
        transaction.Commit();
    }
    reporter.Say(Counted(undone, "record") + " put back");
    return status;
}

Status ReadHistory(const RecordIds& ids, const Reporter& reporter,
                   const std::function<void(const FormerVersion& version)>& take) {
    const std::optional<Database> database = OpenStoreToRead();
    Status status = kStatusWell;
    for (const std::int64_t id : ids) {
        const auto record = database ? RecordStore(*database).Find(id) : std::nullopt;
        if (record) {
            HandHistory(id, record->bytes, RecordHistory(*database), take);
        } else {
            SayMissing(reporter, id);
            status = kStatusFindings;
        }
    }
    return status;
}

}  // namespace quillory
