#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// By what a file is known to be as it was: another stamp means that it was written, or replaced.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t file = 0;  // all zeros for a file that is not there
    std::int64_t size = 0;   // in bytes
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;

    static FileStamp Of(const std::string& path);

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

}  // namespace quillory
