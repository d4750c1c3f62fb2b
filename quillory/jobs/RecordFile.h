#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/jobs/FileStamp.h>
#include <quillory/jobs/RecordSet.h>
#include <quillory/sets/PackedRecords.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quillory {

// A file of records that a person looks through and changes here and there. An index of 16 bytes a
// record is made step by step; records are read when they are asked for, ISO 2709 from the file
// itself, other forms and packed files from a temporary one. Saving replaces the bytes of changed
// records and keeps all others.
class RecordFile : public RecordSet {
public:
    // Throws FileError.
    explicit RecordFile(const std::string& path);
    // Of new records alone, which have no file yet; it has an empty path.
    RecordFile();
    ~RecordFile() override;

    const std::string& Path() const override { return path_; }
    const Form& GetForm() const override { return *form_; }

    bool FindMore(std::size_t items) override;
    bool IsWhole() const override { return reader_ == nullptr; }
    double ShareFound() const override;

    std::size_t Size() const override { return entries_.size(); }
    void Read(std::size_t index, Item& item) override;
    void ReadAsSaved(std::size_t index, Item& item) override;
    const ItemFault* FaultAt(std::size_t index) const override;
    bool IsDamaged(std::size_t index) const override { return damaged_.contains(index); }

    // The file has to be whole, and to have records already.
    std::size_t Add(const Record& record) override;
    bool IsNew(std::size_t index) const override { return index >= entries_.size() - added_; }
    void RemoveLast() override;

    void Replace(std::size_t index, const Record& record) override;
    void Discard(std::size_t index) override { changed_.erase(index); }
    bool IsChanged(std::size_t index) const override {
        return IsNew(index) || changed_.contains(index);
    }
    std::size_t Changes() const override;

    bool HasChangedOnDisk() const override {
        return !path_.empty() && stamp_ != FileStamp::Of(path_);
    }
    // Writes the file anew with the changed records. All other bytes stay, and so does the file if
    // it has changed on disk, or its form can't hold a record.
    void Save() override;

private:
    struct Entry {
        std::uint64_t offset;
        std::uint32_t size;
        std::uint32_t packed;  // its number in `packed_`, from 1; 0 if it is read from the file
    };

    struct NewText {
        std::string_view gap;  // that comes before the record, if that is new
        std::string bytes;
    };
    // By index, what takes the place of what the file has.
    using NewBytes = std::map<std::size_t, NewText>;

    void Open();
    void Take(const Item& item);
    void ReadInPlace(const Entry& entry, Item& item);
    void CheckCanBeSaved() const;
    std::string BytesOfChanged(std::size_t index);
    NewText TextOfNew(std::size_t index);
    void Write(const NewBytes& newBytes);
    void TakeOver(const NewBytes& newBytes);

    std::string path_;
    FileStamp stamp_;
    std::unique_ptr<Input> input_;  // these two until the file has been looked at as a whole
    std::unique_ptr<RecordReader> reader_;
    const Form* form_ = nullptr;
    bool isPacked_ = false;
    bool isUtf8Document_ = true;
    bool isArray_ = false;
    int descriptor_ = -1;
    std::vector<Entry> entries_;
    std::unordered_map<std::size_t, ItemFault> faults_;
    std::unordered_set<std::size_t> damaged_;
    std::size_t added_ = 0;         // the last so many records are new
    std::optional<Fault> packing_;  // what is wrong with a packed file as a whole
    PackedRecords packed_;
    std::map<std::size_t, std::string> changed_;  // packed items
    Item found_;
    std::string buffer_;
    zorby::CommFormatFields fields_;
};

}  // namespace quillory
