#pragma once

#include <filesystem>
#include <string>

namespace quillory {

// What the name of an output leads to.
struct OutputTarget {
    // For "-", /dev/stdout and /dev/fd/3, and for the name of the file that standard output goes
    // to: a descriptor that is open already. Negative if there is none.
    int descriptor = -1;
    // Otherwise the path, links followed, also one that leads to nothing yet.
    std::filesystem::path path;
    // A file can be replaced as a whole; what else there is, as a named pipe, is written into.
    bool isFile = false;
};

// Throws UsageError for an empty name, and FileError for links that lead nowhere but to each other.
OutputTarget OutputTargetOf(const std::string& name);

bool IsStandardOutput(const std::string& name);

}  // namespace quillory
