#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The text in lines of at most so many bytes, divided at blanks. A longer word has a line of its
// own. The last line has no end.
std::string Folded(std::string_view text, std::size_t columns);

// What can be set in lines anew: lines that begin with a blank, as those of a table, are a
// paragraph each; others are joined up to one that ends with a sentence. Empty lines go.
std::vector<std::string> Paragraphs(std::string_view text);

}  // namespace quillory
