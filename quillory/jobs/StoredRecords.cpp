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

[[noreturn]] void Refuse(const std::string& path, std::uint64_t number, const std::string& reason) {
    throw FileError(path + ": record " + std::to_string(number) + ": " + reason);
}

}  // namespace

StoredRecords::StoredRecords()
    : database_(OpenStore()),
      store_(database_),
      locks_(database_.Path()),
      version_(database_.Version()),
      ids_(store_.Ids()),
      lastId_(ids_.empty() ? 0 : ids_.back()) {}

std::uint64_t StoredRecords::NumberOf(std::size_t index) const {
    return IsNew(index) ? kNewNumbers + index : static_cast<std::uint64_t>(ids_[index]);
}

std::optional<std::size_t> StoredRecords::IndexOf(std::uint64_t number) const {
    const auto id = static_cast<std::int64_t>(number);
    const auto found = std::ranges::find(ids_, id);
    if (found == ids_.end()) return std::nullopt;
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

void StoredRecords::CheckIsAsRead(std::size_t index,
                                  const std::optional<StoredRecord>& stored) const {
    if (!stored) Refuse(Path(), NumberOf(index), "another program has deleted it");
    const auto known = signs_.find(index);
    if (known == signs_.end() || known->second != SignOf(stored->bytes)) {
        Refuse(Path(), NumberOf(index), "another program has changed it");
    }
}

// Whoever saves a record has locked it, so nobody saves it between the look and the change.
void StoredRecords::Hold(std::size_t index) {
    if (IsNew(index) || locks_.IsOurs(ids_[index])) return;
    if (!locks_.Lock(ids_[index])) {
        Refuse(Path(), NumberOf(index), "it is being changed by " + HolderOf(index));
    }
    try {
        CheckIsAsRead(index, store_.Find(ids_[index]));
    } catch (const FileError&) {
        LetGo(index);
        throw;
    }
}

void StoredRecords::LetGo(std::size_t index) {
    if (!IsNew(index)) locks_.Unlock(ids_[index]);
}

std::string StoredRecords::HolderOf(std::size_t index) const {
    return IsNew(index) ? std::string() : locks_.HolderElsewhere(ids_[index]);
}

bool StoredRecords::IsOutdated(std::size_t index) const {
    const auto known = signs_.find(index);
    if (IsNew(index) || known == signs_.end() || locks_.IsOurs(ids_[index])) return false;
    const auto stored = store_.Find(ids_[index]);
    return !stored || SignOf(stored->bytes) != known->second;
}

// The indexes of new records stay as they are until these are saved.
bool StoredRecords::Follow() {
    const bool hasChanged = version_ != database_.Version();
    if (hasChanged) {
        version_ = database_.Version();
        faults_.clear();
        isBehind_ = true;
    }
    if (isBehind_ && added_.empty()) TakeIn(store_.IdsAfter(lastId_));
    return hasChanged;
}

void StoredRecords::TakeIn(const std::vector<std::int64_t>& ids) {
    isBehind_ = false;
    if (ids.empty()) return;
    ids_.insert(ids_.end(), ids.begin(), ids.end());
    lastId_ = std::max(lastId_, ids.back());
}

void StoredRecords::Replace(std::size_t index, const Record& record) {
    Hold(index);
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
    const auto stored = store_.Find(ids_[index]);
    CheckIsAsRead(index, stored);
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
    const std::vector<std::int64_t> others = store_.IdsAfter(lastId_);
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
        lastId_ = id;
    }
    TakeIn(others);
    locks_.UnlockAll();
    changed_.clear();
    added_.clear();
}

}  // namespace quillory
