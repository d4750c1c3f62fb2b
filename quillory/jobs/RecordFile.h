#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Input.h>
#include <quillory/jobs/FileStamp.h>
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
class RecordFile {
public:
    // Throws FileError.
    explicit RecordFile(const std::string& path);
    // Of new records alone, which have no file yet; it has an empty path.
    RecordFile();
    ~RecordFile();
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    const std::string& Path() const { return path_; }
    const Form& GetForm() const { return *form_; }

    // Looks at so many more items of the file. False if there is nothing left. Throws FileError.
    bool FindMore(std::size_t items);
    bool IsWhole() const { return reader_ == nullptr; }
    // How much of the file has been looked at, from 0 to 1.
    double ShareFound() const;

    // The records found so far, damaged ones among them.
    std::size_t Size() const { return entries_.size(); }
    // Makes `item` the record at this index, as it is now; its number is the index plus 1. Views
    // last until the next call. Throws FileError.
    void Read(std::size_t index, Item& item);
    // The same as the file has it, or as it was when it was added.
    void ReadAsSaved(std::size_t index, Item& item);
    // What is wrong with the bytes of a record; null if nothing is.
    const ItemFault* FaultAt(std::size_t index) const;
    // Whether the record can't be read, and so not be changed.
    bool IsDamaged(std::size_t index) const { return damaged_.contains(index); }

    // The record is to come after all others when the file is saved. Result: its index. The file
    // has to be whole, and to have records already; throws FileError if it is not so.
    std::size_t Add(const Record& record);
    bool IsNew(std::size_t index) const { return index >= entries_.size() - added_; }
    // Takes the last record back, which is new.
    void RemoveLast();

    // The record is to be this one when the file is saved.
    void Replace(std::size_t index, const Record& record);
    void Discard(std::size_t index) { changed_.erase(index); }
    bool IsChanged(std::size_t index) const { return IsNew(index) || changed_.contains(index); }
    std::size_t Changes() const;

    // Whether another program has replaced, changed or removed the file.
    bool HasChangedOnDisk() const { return !path_.empty() && stamp_ != FileStamp::Of(path_); }
    // Writes the file anew with the changed records. All other bytes stay. Throws FileError, also
    // for a file that has changed on disk or a record that its form can't hold; the file stays as
    // it was then, and so do the changes.
    void Save();

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
