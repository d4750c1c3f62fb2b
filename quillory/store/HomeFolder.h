#pragma once

#include <filesystem>

namespace quillory {

// Where the user's settings and store are kept: QUILLORY_HOME, or else quillory/ in the user's XDG
// data folder. It need not exist.
std::filesystem::path HomeFolder();

}  // namespace quillory
