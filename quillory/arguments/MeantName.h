#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// "; did you mean check?" for a word that was to be one of these names, with two or three names
// where the word is a part of them. Dashes before a word and a name don't count. Empty if none of
// the names is near.
std::string MeantNames(std::string_view word, const std::vector<std::string>& names);

}  // namespace quillory
