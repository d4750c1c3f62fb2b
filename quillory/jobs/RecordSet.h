#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Record.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace quillory {

// Records that a person looks through and changes here and there: a file, or the store. What is
// changed waits until all of it is saved. An index counts from 0.
class RecordSet {
public:
    RecordSet() = default;
    virtual ~RecordSet() = default;
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;

    virtual const std::string& Path() const = 0;
    virtual const Form& GetForm() const = 0;
    virtual bool IsStore() const { return false; }

    // Looks at so many more items. False if there is nothing left. Throws FileError.
    virtual bool FindMore(std::size_t items) = 0;
    virtual bool IsWhole() const = 0;
    // How much has been looked at, from 0 to 1.
    virtual double ShareFound() const = 0;

    // The records found so far, damaged ones among them.
    virtual std::size_t Size() const = 0;
    // The number by which a person knows a record, also when the set is opened again; and the
    // record of a number, if it is there. A new record may have one that nobody knows yet.
    virtual std::uint64_t NumberOf(std::size_t index) const { return index + 1; }
    virtual std::optional<std::size_t> IndexOf(std::uint64_t number) const {
        if (number == 0 || number > Size()) return std::nullopt;
        return static_cast<std::size_t>(number - 1);
    }
    // Makes `item` the record at this index, as it is now. Views last until the next call. Throws
    // FileError.
    virtual void Read(std::size_t index, Item& item) = 0;
    // The same for a person who may change it: what another program does to it from then on is
    // found when it is saved.
    virtual void ReadToEdit(std::size_t index, Item& item) { Read(index, item); }
    // The same as it was saved, or as it was when it was added.
    virtual void ReadAsSaved(std::size_t index, Item& item) = 0;
    // What is wrong with the bytes of a record that was read; null if nothing is.
    virtual const ItemFault* FaultAt(std::size_t index) const = 0;
    // Whether the record can't be read, and so not be changed.
    virtual bool IsDamaged(std::size_t index) const = 0;

    // The record is to come after all others when the set is saved. Result: its index. Throws
    // FileError if that can't be.
    virtual std::size_t Add(const Record& record) = 0;
    virtual bool IsNew(std::size_t index) const = 0;
    // Takes the last record back, which is new.
    virtual void RemoveLast() = 0;

    // A person begins to change a record that ReadToEdit gave, and nobody else may do so until
    // LetGo or Save. Throws FileError if somebody else changes it now, or has changed it.
    virtual void Hold(std::size_t /*index*/) {}
    virtual void LetGo(std::size_t /*index*/) {}
    // Who else changes the record now, such as "jo on desk-3, program 4711, since 10:41"; empty for
    // nobody. Throws FileError.
    virtual std::string HolderOf(std::size_t /*index*/) const { return {}; }
    // Takes in what others have saved. Records that they added come last, as soon as none is new
    // here. False if nobody has saved anything since the last time. Throws FileError.
    virtual bool Follow() { return false; }
    // Whether a record that is not held here is another one now than ReadToEdit gave. Throws
    // FileError.
    virtual bool IsOutdated(std::size_t /*index*/) const { return false; }

    // The record is to be this one when the set is saved. Holds it; throws FileError as Hold.
    virtual void Replace(std::size_t index, const Record& record) = 0;
    virtual void Discard(std::size_t index) = 0;
    virtual bool IsChanged(std::size_t index) const = 0;
    virtual std::size_t Changes() const = 0;

    // Whether another program has replaced, changed or removed the file as a whole.
    virtual bool HasChangedOnDisk() const = 0;
    // Saves all changes or, if it throws FileError, none of them; they wait then as before.
    virtual void Save() = 0;
};

}  // namespace quillory
