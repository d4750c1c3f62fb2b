#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Locks on things that have IDs: a file beside the store with a place for each ID, which is locked
// by whoever has that thing, and says who that is. Places that nobody has ever locked take no room
// on the disk. Failures throw FileError.
class LockedPlaces {
public:
    // Opens the file, or makes it. `size` is that of a place, in bytes.
    LockedPlaces(std::string path, std::size_t size);
    ~LockedPlaces();
    LockedPlaces(const LockedPlaces&) = delete;
    LockedPlaces& operator=(const LockedPlaces&) = delete;

    // Locks it and writes who has it, cut or filled up with zeros to the size of a place. False if
    // somebody else has locked it.
    bool Lock(std::int64_t id, std::string_view holder);
    void Unlock(std::int64_t id);
    // What somebody else wrote who has it: less than a place, or zeros, where that is not known.
    // Nothing if nobody else has it.
    std::optional<std::string> HolderElsewhere(std::int64_t id) const;

private:
    std::string path_;
    std::size_t size_;
    int descriptor_;
};

}  // namespace quillory
