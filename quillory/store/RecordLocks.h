#pragma once

#include <quillory/store/LockedPlaces.h>

#include <set>
#include <string>

namespace quillory {

// Locks on records of the store, by ID: somebody is changing them. Two of these objects are two
// people, also in one program; what one has locked is free again when it goes, however its program
// ends. Failures throw FileError.
class RecordLocks {
public:
    // For the store at this path. Opens the file of the locks, or makes it.
    explicit RecordLocks(const std::string& store);

    // Again and again, too. False if somebody else has it.
    bool Lock(std::int64_t id);
    void Unlock(std::int64_t id);
    void UnlockAll();
    bool IsOurs(std::int64_t id) const { return own_.contains(id); }

    // Who else has it, such as "jo on desk-3, program 4711, since 10:41"; empty for nobody.
    std::string HolderElsewhere(std::int64_t id) const;

private:
    LockedPlaces places_;
    std::set<std::int64_t> own_;
};

}  // namespace quillory
