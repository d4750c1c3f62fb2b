#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Throws UsageError if `path`, which is to be written, is a file that the programs keep for
// themselves: the store, the settings, a queue, a journal, or what stands beside them.
void CheckNotOurs(const std::string& path);
// Throws UsageError if `path` is one of the files that are read, or one of our own.
void CheckNotAnInput(const std::vector<std::string>& files, const std::string& path);
// Throws UsageError if two outputs would be one file, under whatever names; `contents` names both
// outputs. An empty path is no file, and /dev/null takes anything.
void CheckNotTheSame(const std::string& path, const std::string& other, std::string_view contents);

}  // namespace quillory
