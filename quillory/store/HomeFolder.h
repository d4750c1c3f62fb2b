#pragma once

#include <filesystem>

namespace quillory {

// Where the user's settings and store are kept: QUILLORY_HOME, or else quillory/ in the user's XDG
// data folder. It need not exist. Throws UsageError if the environment names no folder at all.
std::filesystem::path HomeFolder();
bool HasHomeFolder();

}  // namespace quillory
