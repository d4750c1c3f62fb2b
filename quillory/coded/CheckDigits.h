#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The check digits of standard numbers, from the digits before them.

// Of an ISBN of 10 digits or an ISSN, modulo 11: a digit or X (ISO 2108, ISO 3297).
char CheckDigit11(std::string_view digits);
// Of an ISBN of 13 digits, an EAN or a UPC, modulo 10 (GS1 General Specifications).
char CheckDigit10(std::string_view digits);

// The 13 digits of an ISBN that has 10 or 13 of them, without hyphens, and the right check digit;
// empty for anything else. The last of 10 may be an X or x.
std::string SoundIsbn13(std::string_view number);

}  // namespace quillory
