#pragma once

#include <quillory/edits/EditSession.h>
#include <quillory/jobs/FileHold.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
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

// What a person has changed in a file and not saved yet, on the disk of the computer, so that it is
// there after a crash. The journal also says who has the file open: it is locked as long as that
// program lives.
class EditJournal {
public:
    // For the file at `path`, or for new records without a file if that is empty. Takes the file if
    // nobody has it. Throws FileError if the folder of journals can't be written.
    EditJournal(const std::filesystem::path& folder, const std::string& path);
    ~EditJournal();
    EditJournal(const EditJournal&) = delete;
    EditJournal& operator=(const EditJournal&) = delete;

    // Whether this object has the file. If it does not, Holder says who does.
    bool IsOurs() const { return hold_.IsOurs(); }
    const std::string& Holder() const { return hold_.Holder(); }
    // Whether nobody has the file any more, and taking it then; as FileHold.
    bool IsFree() const { return hold_.IsFree(); }
    bool Take() { return hold_.Take(); }

    // What a program left that ended before it saved.
    std::vector<KeptChange> Left() const;
    // Adds a change. It is on the disk when this returns. Throws FileError, for a full disk among
    // others, and what was written before stays then. Does nothing if the file is not ours.
    void Write(const KeptChange& change);
    // These changes are all there are. If they can't be written, those from before stay. Throws
    // FileError.
    void Rewrite(const std::vector<KeptChange>& changes);
    // Nothing is left to be saved.
    void Clear();

private:
    void Open();
    void Append(const std::string& bytes);

    std::filesystem::path journal_;
    FileHold hold_;
    int descriptor_ = -1;
};

// The last change of each record in a journal, in the order of the records. A change that was only
// half written is left out, and so is all of a file that is no journal.
std::vector<KeptChange> ReadJournal(const std::filesystem::path& journal);

// The journals of new records without a file whose programs have ended.
std::vector<std::filesystem::path> NewRecordsLeft(const std::filesystem::path& folder);

}  // namespace quillory
