#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The text with one blank for each run of blanks, control characters and bytes that are not UTF-8,
// and no blank at its ends.
std::string TidyText(std::string_view utf8);

// The text without case and diacritics.
std::string Folded(std::string_view utf8);
// The same into a text that is used again and again.
void Fold(std::string_view utf8, std::string& folded);
// The text without diacritics, its case kept.
std::string WithoutMarks(std::string_view utf8);

// Titles are found by so many bytes of them, folded: the index holds no more.
inline constexpr std::size_t kTitleKeySize = 32;
// The first bytes of a folded text, without a character cut in half.
std::string_view TitleKeyOf(std::string_view folded);

}  // namespace quillory
