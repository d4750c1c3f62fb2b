#pragma once

#include <cstdint>

namespace quillory {

// A part of a file, in bytes; size 0 is all that comes after its begin.
struct FileRange {
    std::int64_t begin = 0;
    std::int64_t size = 0;
};

enum class RangeState : std::uint8_t { kFree, kLocked, kUnknown };

// Locks of the operating system. They belong to the open file, so that two windows of one program
// are two, too, and they vanish when it is closed, however its program ends. Where these functions
// fail, `errno` says why.

// False if somebody else has locked some of it, or if it can't be locked.
bool LockRange(int descriptor, FileRange range);
void UnlockRange(int descriptor, FileRange range);
// Whether somebody else has locked some of it.
RangeState StateOfRange(int descriptor, FileRange range);

}  // namespace quillory
