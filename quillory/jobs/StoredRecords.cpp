#include <quillory/exchange/RecordText.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/jobs/StoredRecords.h>
#include <quillory/sets/PackedItem.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace quillory {
namespace {

// Above all IDs: a new record has none yet.
constexpr std::uint64_t kNewNumbers = std::uint64_t{1} << 63U;

constexpr const char* kChange = "edited at the desk";

std::size_t SignOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

std::string Packed(const Record& record) {
    Item item;
    item.Begin(kItemRecord, 0, {});
    item.record = record;
    std::string packed;
    PackItem(item, 0, packed);
    return packed;
}

[[noreturn]] void Refuse(const std::string& path, std::uint64_t number, const char* reason) {
    throw FileError(path + ": record " + std::to_string(number) + ": " + reason);
}

}  // namespace

StoredRecords::StoredRecords() : database_(OpenStore()), store_(database_), ids_(store_.Ids()) {}

std::uint64_t StoredRecords::NumberOf(std::size_t index) const {
    return IsNew(index) ? kNewNumbers + index : static_cast<std::uint64_t>(ids_[index]);
}

std::optional<std::size_t> StoredRecords::IndexOf(std::uint64_t number) const {
    const auto id = static_cast<std::int64_t>(number);
    const auto found = std::ranges::lower_bound(ids_, id);
    if (found == ids_.end() || *found != id) return std::nullopt;
    return static_cast<std::size_t>(found - ids_.begin());
}

void StoredRecords::ReadAsSaved(std::size_t index, Item& item) {
    if (IsNew(index)) {
        UnpackItem(added_[index - ids_.size()], item);
        return;
    }
    auto stored = store_.Find(ids_[index]);
    if (stored) {
        stored_ = std::move(*stored);
        ReadItem(stored_, fields_, item);
    } else {
        item.Begin(kItemDamaged, 0, {});
        item.fault = ItemFault{Fault{FaultCode::kNoStoredRecord, {}, std::to_string(ids_[index])}};
    }
    if (item.fault) {
        faults_[index] = *item.fault;
    } else {
        faults_.erase(index);
    }
}

void StoredRecords::Read(std::size_t index, Item& item) {
    const auto changed = changed_.find(index);
    if (changed == changed_.end()) {
        ReadAsSaved(index, item);
    } else {
        UnpackItem(changed->second, item);
    }
    item.number = NumberOf(index);
}

void StoredRecords::ReadToEdit(std::size_t index, Item& item) {
    Read(index, item);
    if (!IsNew(index) && !changed_.contains(index)) signs_[index] = SignOf(item.bytes);
}

const ItemFault* StoredRecords::FaultAt(std::size_t index) const {
    const auto found = faults_.find(index);
    return found == faults_.end() ? nullptr : &found->second;
}

std::size_t StoredRecords::Add(const Record& record) {
    added_.push_back(Packed(record));
    return Size() - 1;
}

void StoredRecords::RemoveLast() {
    if (added_.empty()) return;
    changed_.erase(Size() - 1);
    added_.pop_back();
}

void StoredRecords::Replace(std::size_t index, const Record& record) {
    changed_[index] = Packed(record);
}

bool StoredRecords::IsChanged(std::size_t index) const {
    return IsNew(index) || changed_.contains(index);
}

std::size_t StoredRecords::Changes() const {
    const auto newOnes = std::distance(changed_.lower_bound(ids_.size()), changed_.end());
    return changed_.size() - static_cast<std::size_t>(newOnes) + added_.size();
}

NewRecord StoredRecords::NewRecordOf(std::size_t index, std::string_view former, Item& item) const {
    const auto changed = changed_.find(index);
    UnpackItem(changed == changed_.end() ? added_[index - ids_.size()] : changed->second, item);
    RecordText text = TextAmongOthers(GetForm(), item.record, former);
    if (text.fault) {
        const std::uint64_t number = IsNew(index) ? index + 1 : NumberOf(index);
        throw FileError(Path() + ": record " + std::to_string(number), *text.fault);
    }
    Summarizer summarizer;
    return {summarizer.Summarize(item.record), std::move(text.bytes)};
}

StoredRecords::Saved StoredRecords::SaveChanged(std::size_t index, RecordHistory& history,
                                                std::int64_t edit) {
    const std::uint64_t number = NumberOf(index);
    const auto stored = store_.Find(ids_[index]);
    if (!stored) Refuse(Path(), number, "another program has deleted it");
    const auto known = signs_.find(index);
    if (known == signs_.end() || known->second != SignOf(stored->bytes)) {
        Refuse(Path(), number, "another program has changed it");
    }
    Item item;
    const NewRecord record = NewRecordOf(index, stored->bytes, item);
    history.Replace(ids_[index], record, edit, kChange);
    return {index, SignOf(record.bytes)};
}

void StoredRecords::Save() {
    if (Changes() == 0) return;
    std::vector<Saved> saved;
    std::vector<std::int64_t> newIds;
    Transaction transaction(database_);
    RecordHistory history(database_);
    const std::int64_t edit = history.NextEdit();
    Item item;
    for (const auto& [index, packed] : changed_) {
        if (!IsNew(index)) saved.push_back(SaveChanged(index, history, edit));
    }
    newIds.reserve(added_.size());
    for (std::size_t i = 0; i < added_.size(); ++i) {
        newIds.push_back(store_.Add(NewRecordOf(ids_.size() + i, {}, item)));
    }
    transaction.Commit();
    for (const auto& [index, sign] : saved) signs_[index] = sign;
    for (const std::int64_t id : newIds) {
        if (const auto stored = store_.Find(id)) signs_[ids_.size()] = SignOf(stored->bytes);
        ids_.push_back(id);
    }
    changed_.clear();
    added_.clear();
}

}  // namespace quillory
