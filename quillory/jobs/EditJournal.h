#pragma once

#include <quillory/edits/EditSession.h>
#include <quillory/jobs/FileHold.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quillory {

// A change of a record that has not been saved.
struct KeptChange {
    std::uint64_t record = 0;  // its index in the file
    bool isNew = false;        // the file does not have it yet
    bool isTaken = false;      // taken back: the record is as the file has it, or is not there
    std::uint64_t origin = 0;  // SignOf the record that the file has
    EditSession::State state;  // fields without what they came from
};

// By which a record is known to be as it was, however it is stored.
std::uint64_t SignOf(const EditSession::State& state);

// How many windows may change what a journal is of.
enum class Writers : std::uint8_t { kOne, kMany };

// What a person has changed in a window and not saved yet, on the disk of the computer, so that it
// is there after a crash. It is locked as long as its program lives. A file has one journal, which
// also says who has the file open. Of the store, and of new records without a file, each window has
// a journal of its own, the first one that is free: NAME.journal, NAME-2.journal and so on. What
// programs left in others of that name comes to the window that opens them next.
class EditJournal {
public:
    // For the file at `path`, or for new records without a file if that is empty. Takes the file if
    // nobody has it, and the journals that were left. Throws FileError if the folder of journals
    // can't be written.
    EditJournal(const std::filesystem::path& folder, const std::string& path,
                Writers writers = Writers::kOne);
    ~EditJournal();
    EditJournal(const EditJournal&) = delete;
    EditJournal& operator=(const EditJournal&) = delete;

    // Whether this object has the file. If it does not, Holder says who does.
    bool IsOurs() const { return own_.hold->IsOurs(); }
    const std::string& Holder() const { return own_.hold->Holder(); }
    // Whether nobody has the file any more, and taking it then; as FileHold.
    bool IsFree() const { return own_.hold->IsFree(); }
    bool Take() { return own_.hold->Take(); }

    // What programs left that ended before they saved. Several of them may have changed a record.
    std::vector<KeptChange> Left() const;
    // Nobody wants it.
    void DropLeft();
    // Whether another program has left changes since, which nobody has taken. Of a journal with one
    // writer, never.
    bool IsMoreLeft() const;
    // Takes them. Nothing if somebody else has.
    std::vector<KeptChange> TakeMoreLeft();
    // Adds a change. It is on the disk when this returns. Throws FileError, for a full disk among
    // others, and what was written before stays then. Does nothing if the file is not ours.
    void Write(const KeptChange& change);
    // These changes are all there are, and what was left is among them. If they can't be written,
    // what was there before stays. Throws FileError.
    void Rewrite(const std::vector<KeptChange>& changes);
    // The same for these changes and all that this window has written.
    void Adopt(const std::vector<KeptChange>& changes);
    // All of this window is saved, or discarded.
    void Clear();

private:
    // Where a journal may be, and who has it.
    struct Slot {
        explicit Slot(std::filesystem::path path);
        std::filesystem::path journal;
        std::unique_ptr<FileHold> hold;
    };

    std::vector<std::filesystem::path> Journals() const;
    void TakeLeft();
    void TakeFree();
    void AddLeft(std::vector<KeptChange>& changes) const;
    void RemoveLeft();
    void Open();
    void Append(const std::string& bytes);

    std::filesystem::path folder_;
    std::string name_;
    Slot own_;
    std::vector<Slot> left_;
    Writers writers_;
    int descriptor_ = -1;
};

// Of the user, in the folder of HomeFolder.
std::filesystem::path JournalFolder();

// The last change of each record in a journal, in the order of the records. A change that was only
// half written is left out, and so is all of a file that is no journal.
std::vector<KeptChange> ReadJournal(const std::filesystem::path& journal);

}  // namespace quillory
