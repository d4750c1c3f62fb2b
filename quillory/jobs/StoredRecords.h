#pragma once

#include <quillory/jobs/RecordSet.h>
#include <quillory/store/RecordLocks.h>
#include <quillory/store/RecordStore.h>
#include <zorby/record/CommFormat.h>

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillory {

class RecordHistory;

// The records of the store, in the order of their IDs, which are their numbers; those that others
// add meanwhile come after them. What they were before a change stays in their history. A record
// that is being changed is locked.
class StoredRecords : public RecordSet {
public:
    // Opens the store, or makes it. Takes 8 bytes a record. Throws FileError.
    StoredRecords();

    const std::string& Path() const override { return database_.Path(); }
    const Form& GetForm() const override { return Forms().front(); }
    bool IsStore() const override { return true; }

    bool FindMore(std::size_t /*items*/) override { return false; }
    bool IsWhole() const override { return true; }
    double ShareFound() const override { return 1; }

    std::size_t Size() const override { return ids_.size() + added_.size(); }
    std::uint64_t NumberOf(std::size_t index) const override;
    std::optional<std::size_t> IndexOf(std::uint64_t number) const override;
    void Read(std::size_t index, Item& item) override;
    void ReadToEdit(std::size_t index, Item& item) override;
    // A record that another program has deleted is a damaged one.
    void ReadAsSaved(std::size_t index, Item& item) override;
    const ItemFault* FaultAt(std::size_t index) const override;
    bool IsDamaged(std::size_t index) const override { return faults_.contains(index); }

    std::size_t Add(const Record& record) override;
    bool IsNew(std::size_t index) const override { return index >= ids_.size(); }
    void RemoveLast() override;

    void Hold(std::size_t index) override;
    void LetGo(std::size_t index) override;
    std::string HolderOf(std::size_t index) const override;
    bool Follow() override;
    bool IsOutdated(std::size_t index) const override;

    void Replace(std::size_t index, const Record& record) override;
    void Discard(std::size_t index) override { changed_.erase(index); }
    bool IsChanged(std::size_t index) const override;
    std::size_t Changes() const override;

    bool HasChangedOnDisk() const override { return false; }
    // A record that a program without locks has changed or deleted since a person began to edit it
    // is not replaced: FileError.
    void Save() override;

private:
    struct Saved {
        std::size_t index;
        std::size_t sign;  // of the new bytes
    };

    void CheckIsAsRead(std::size_t index, const std::optional<StoredRecord>& stored) const;
    void TakeIn(const std::vector<std::int64_t>& ids);
    NewRecord NewRecordOf(std::size_t index, std::string_view former, Item& item) const;
    Saved SaveChanged(std::size_t index, RecordHistory& history, std::int64_t edit);

    Database database_;
    RecordStore store_;
    RecordLocks locks_;
    std::int64_t version_;  // of the store, at the last look
    std::vector<std::int64_t> ids_;
    std::int64_t lastId_ = 0;                             // all records up to this one are here
    bool isBehind_ = false;                               // others may have added records
    std::unordered_map<std::size_t, ItemFault> faults_;   // of records that were read
    std::map<std::size_t, std::string> changed_;          // packed items
    std::vector<std::string> added_;                      // the same, as they were added
    std::unordered_map<std::size_t, std::size_t> signs_;  // of the bytes that are being edited
    StoredRecord stored_;
    std::string packed_;
    zorby::CommFormatFields fields_;
};

}  // namespace quillory
