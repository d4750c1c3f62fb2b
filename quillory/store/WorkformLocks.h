#pragma once

#include <map>
#include <string>

namespace quillory {

// Locks on workforms, by ID. They are locks of the operating system on a file beside the store,
// which vanish when their process ends, however it ends.
class WorkformLocks {
public:
    // Opens the file, or makes it. Throws FileError.
    explicit WorkformLocks(const std::string& path);
    ~WorkformLocks();
    WorkformLocks(const WorkformLocks&) = delete;
    WorkformLocks& operator=(const WorkformLocks&) = delete;

    // Locks for `who`, who may do so again. False if somebody else holds the lock, in this process
    // or another. Throws FileError.
    bool Lock(int id, int who);
    void Unlock(int id);

    // Who holds the lock, or 0 if nobody.
    int HolderOf(int id) const;
    // Whether another process holds it, or somebody other than `who` in this one; who 0 is anybody.
    bool IsHeldByOther(int id, int who) const;

private:
    int HolderElsewhere(int id) const;

    std::string path_;
    int descriptor_;
    std::map<int, int> own_;  // who by ID
};

}  // namespace quillory
