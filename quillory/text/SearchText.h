#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The text with one blank for each run of blanks, control characters and bytes that are no UTF-8,
// and with none at its ends.
std::string TidyText(std::string_view utf8);

// The text without case and diacritics, of which titles are found by their first bytes: the index
// holds no more than these.
std::string Folded(std::string_view utf8);
inline constexpr std::size_t kTitleKeySize = 32;
// The first bytes of a folded text, without a character cut in half.
std::string_view TitleKeyOf(std::string_view folded);

}  // namespace quillory
