#pragma once

#include <filesystem>
#include <string>

namespace quillory {

// Makes an empty file, for records that can't be where they were changed, under a name of its own
// with the date and the time. Result: its path. Throws FileError.
std::string MakeFileApart(const std::filesystem::path& folder);

}  // namespace quillory
