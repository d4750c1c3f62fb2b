#pragma once

#include <string>
#include <vector>

namespace quillory {

// A few of the names, in UTF-8, that may be meant by `text`, the nearest first: those that hold it,
// and those that differ from it in few letters. Case and diacritics don't count.
std::vector<std::string> NearestNames(const std::string& text,
                                      const std::vector<std::string>& names);

// "; perhaps NAME is meant", or an empty text if there is no name.
std::string PerhapsMeant(const std::string& name);
// The same with the nearest of the names; an empty text if none is near.
std::string PerhapsMeant(const std::string& text, const std::vector<std::string>& names);

}  // namespace quillory
