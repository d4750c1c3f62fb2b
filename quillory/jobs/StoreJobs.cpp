#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Carrier.h>
#include <quillory/jobs/HeldRecords.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/StoreJobs.h>
#include <quillory/store/RecordBatch.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

namespace quillory {
namespace {

// Writes records into the store.
class StoreWriter : public RecordWriter {
public:
    explicit StoreWriter(RecordBatch& batch) : batch_(batch), assembler_(kOversizeRefuse) {}

    WriteResult Write(const Record& record, Losses&) override {
        WriteResult result = assembler_.Assemble(record);
        if (result.written) {
            batch_.Add({summarizer_.Summarize(record), std::string(assembler_.Bytes())});
        }
        return result;
    }

private:
    RecordBatch& batch_;
    MarcAssembler assembler_;
    Summarizer summarizer_;
};

// Records keep their character set, except Latin-1, which a leader can't name.
RecoderOptions RecoderOptionsFor(Charset from) {
    return {from, from >= kCharsetLatin1 ? kCharsetUtf8 : kCharsetAuto, {}};
}

void SaySaved(const RecordBatch& batch, const Reporter& reporter) {
    if (batch.Saved() == 0) return;
    const auto [first, last] = batch.Ids();
    std::string ids = last == first ? "ID " : "IDs ";
    ids += std::to_string(first);
    if (last != first) ids += " to " + std::to_string(last);
    reporter.Say(Counted(batch.Saved(), "record") + " added, " + ids);
}

// What is in a file that is added a second time is there twice.
void SayRepeated(const RepeatedNumbersFound& repeated, const RecordStore& store,
                 const Reporter& reporter) {
    if (repeated.count == 0) return;
    const std::optional<StoredRecord> first = store.Find(repeated.first);
    if (!first) return;  // somebody has deleted it meanwhile
    reporter.Say(std::to_string(repeated.count) + " of them " +
                 (repeated.count == 1 ? "has" : "have") +
                 " a control number that an earlier record of the store has, such as " +
                 first->summary.controlNumber + " (ID " + std::to_string(first->id) +
                 "); records list --control-number lists all records of a number");
}

void AddFiles(const AddOptions& options, Carrier& carrier, RecordBatch& batch, Reporter& reporter) {
    carrier.Raise(ReadFiles(options.input, reporter, [&carrier](Item& item) {
        carrier.Take(item);
        return true;
    }));
    batch.Flush();
    carrier.Finish();
}

// The IDs given, or of those and all others the ones of records that match.
std::vector<std::int64_t> IdsOf(const StoredChoice& choice, const Database& database) {
    if (choice.where.AsksForAll()) return choice.ids;
    RecordFilter filter(choice.where, kCharsetAuto);
    const RecordStore store(database);
    zorby::CommFormatFields fields;
    Item item;
    std::vector<std::int64_t> ids;
    const auto take = [&](const StoredRecord& stored) {
        ReadItem(stored, fields, item);
        if (item.kind == kItemRecord && filter.Takes(item.record)) ids.push_back(stored.id);
        return true;
    };
    if (choice.ids.empty()) store.Walk({}, take);
    for (const std::int64_t id : choice.ids) {
        const auto stored = store.Find(id);
        if (stored) {
            take(*stored);
        } else {
            ids.push_back(id);
        }
    }
    return ids;
}

}  // namespace

Status AddRecordsToStore(const AddOptions& options, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.rejects);
    const Database database = OpenStore();
    RecordStore store(database);
    RecordBatch batch(store);
    StoreWriter writer(batch);
    Carrier carrier({RecoderOptionsFor(options.input.charset), false, options.rejects, {}}, writer,
                    reporter);
    try {
        AddFiles(options, carrier, batch, reporter);
    } catch (...) {
        batch.Stop();
        SaySaved(batch, reporter);
        throw;
    }
    carrier.Summarize();
    if (!reporter.Quiet()) {
        SaySaved(batch, reporter);
        SayRepeated(batch.Repeated(), store, reporter);
    }
    return carrier.Result();
}

Status DeleteRecordsFromStore(const StoredChoice& choice, Reporter& reporter) {
    if (choice.ids.empty() && choice.where.AsksForAll()) {
        throw UsageError("which records are to be deleted is missing: their IDs, or --where");
    }
    const Database database = OpenStore();
    RecordStore store(database);
    Status status = kStatusWell;
    std::uint64_t deleted = 0;
    HeldRecords held(database, reporter);
    Transaction transaction(database);
    for (const std::int64_t id : IdsOf(choice, database)) {
        if (held.Has(id)) {
            status = kStatusFindings;
        } else if (store.Delete(id)) {
            ++deleted;
        } else {
            SayMissing(reporter, id);
            status = kStatusFindings;
        }
    }
    transaction.Commit();
    reporter.Say(Counted(deleted, "record") + " deleted");
    return status;
}

Status ExportRecordsOfStore(const StoreExportOptions& options, Reporter& reporter) {
    CheckNotOurs(options.output.output);
    CheckNotOurs(options.output.rejects);
    const std::optional<Database> database = OpenStoreToRead();
    const ItemSource stored = [&](const auto& take) {
        return ReadStored(database, options.choice, reporter, take);
    };
    return WriteItems(stored, kCharsetAuto, options.output, reporter);
}

}  // namespace quillory
