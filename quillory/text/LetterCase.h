#pragma once

#include <string>
#include <string_view>

namespace quillory {

enum class LetterCase {
    Upper,
    Lower,
    Title,     // the first letter of each word is a capital, the others are small
    Sentence,  // that of the first word alone is one
};

// A text with its letters in that case, one for one as Unicode has them. Bytes that are no UTF-8
// stay.
std::string InCase(std::string_view utf8, LetterCase letterCase);

// Whether a character is part of a word: a letter, a digit, or a mark on one.
bool IsOfWord(char32_t codePoint);

}  // namespace quillory
