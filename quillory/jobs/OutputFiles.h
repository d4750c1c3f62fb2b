#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Throws UsageError if `path` is one of the files that are read, or the store.
void CheckNotAnInput(const std::vector<std::string>& files, const std::string& path);
// Throws UsageError if two outputs would be one file, under whatever names; `contents` names both
// outputs. An empty path is no file, and /dev/null takes anything.
void CheckNotTheSame(const std::string& path, const std::string& other, std::string_view contents);

}  // namespace quillory
