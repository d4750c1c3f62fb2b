#include <quillory/exchange/CommFormatFaults.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/Progress.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/store/Schema.h>

#include <filesystem>

namespace quillory {
std::optional<Database> OpenStoreToRead() {
    std::string obstacle;
    std::optional<Database> database = OpenStoreIfThere(obstacle);
    if (!obstacle.empty()) throw FileError(obstacle);
    return database;
}

bool IsTheStore(const std::string& path) {
    const std::string store = StorePath();
    std::error_code unknown;
    return path == store || std::filesystem::equivalent(path, store, unknown);
}

void ReadItem(const StoredRecord& stored, zorby::CommFormatFields& fields, Item& item) {
    item = {};
    item.number = static_cast<std::uint64_t>(stored.id);
    item.bytes = stored.bytes;
    const zorby::CommFormatFault fault = zorby::ReadCommFormat(stored.bytes, fields);
    if (fault) {
        item.kind = kItemDamaged;
        item.fault = FaultOf(fault, stored.bytes);
        item.controlNumber = stored.summary.controlNumber;
    } else {
        item.record = {fields.leader, fields.fields, stored.bytes};
    }
}

Status ReadStored(const std::optional<Database>& database, const StoredChoice& choice,
                  Reporter& reporter, const std::function<bool(Item& item)>& take) {
    RecordFilter filter(choice.where, kCharsetAuto);
    const auto& ids = choice.ids;
    std::optional<RecordStore> store;
    if (database) store.emplace(*database);
    reporter.BeginFile(StorePath());
    Progress progress(reporter);
    const auto total =
        static_cast<std::uint64_t>(store && ids.empty() ? store->Count() : 0) + ids.size();
    std::uint64_t done = 0;
    zorby::CommFormatFields fields;
    Item item;
    const auto takeStored = [&](const StoredRecord& stored) {
        ReadItem(stored, fields, item);
        progress.Step(++done, total);
        return (item.kind == kItemRecord && !filter.Takes(item.record)) || take(item);
    };
    Status status = kStatusWell;
    if (store && ids.empty()) store->Walk({}, takeStored);
    for (const std::int64_t id : ids) {
        const auto stored = store ? store->Find(id) : std::nullopt;
        if (!stored) {
            SayMissing(reporter, id);
            status = kStatusFindings;
        } else if (!takeStored(*stored)) {
            break;
        }
    }
    reporter.EndFile();
    return status;
}

void SayMissing(const Reporter& reporter, std::int64_t id) {
    reporter.Say(FaultReason({FaultCode::kNoStoredRecord, {}, std::to_string(id)}));
}

}  // namespace quillory
