#pragma once

#include <quillory/store/LockedPlaces.h>

#include <map>
#include <string>

namespace quillory {

// Locks on workforms, by ID, each of somebody who has a number. They vanish when their process
// ends, however it ends. Failures throw FileError.
class WorkformLocks {
public:
    // Opens the file of the locks, or makes it.
    explicit WorkformLocks(const std::string& path) : places_(path, sizeof(int)) {}

    // Locks for `who`, who may do so again. False if somebody else holds the lock, in this process
    // or another.
    bool Lock(int id, int who);
    void Unlock(int id);

    // Who holds the lock, or 0 if nobody.
    int HolderOf(int id) const;
    // Whether another process holds it, or somebody other than `who` in this one; who 0 is anybody.
    bool IsHeldByOther(int id, int who) const;

private:
    int HolderElsewhere(int id) const;

    LockedPlaces places_;
    std::map<int, int> own_;  // who by ID
};

}  // namespace quillory
