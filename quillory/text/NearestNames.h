#pragma once

#include <string>
#include <vector>

namespace quillory {

// Those of the names, in UTF-8, that somebody may have meant by `text`, the nearest first: a few
// that hold it, or else that differ in few letters. Case and diacritics don't count.
std::vector<std::string> NearestNames(const std::string& text,
                                      const std::vector<std::string>& names);

}  // namespace quillory
