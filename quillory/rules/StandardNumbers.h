#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The digits, X, hyphens and blanks at the front of a text.
std::string_view GroupsAtFront(std::string_view text);

// The ISBN at the front of a text, before any words: digits, X and hyphens, and blanks where a
// number of 10 or 13 digits has them between its groups. Empty for a text that begins otherwise.
std::string_view IsbnAtFront(std::string_view text);
// What an ISBN is compared by. It is the same whether a sound ISBN has 10 digits or 13, with
// hyphens or blanks between its groups or without; any other number is compared as it is written.
std::string IsbnKey(std::string_view number);

// What is wrong with a number, in words that follow the number; empty if nothing is. Each takes the
// number alone.

// An ISBN of 10 or 13 digits, with or without hyphens or blanks.
std::string FaultOfIsbn(std::string_view number);
// An ISSN: four digits, a hyphen, three digits, a check digit.
std::string FaultOfIssn(std::string_view number);
// An International Article Number of 13 digits, with or without hyphens or blanks.
std::string FaultOfEan(std::string_view number);
// A Universal Product Code of 12 digits.
std::string FaultOfUpc(std::string_view number);
// An ISMN: 13 digits that begin with 9790, or M and nine digits.
std::string FaultOfIsmn(std::string_view number);

}  // namespace quillory
