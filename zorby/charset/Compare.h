#pragma once

#include <zorby/Export.h>

#include <string>
#include <string_view>

namespace zorby {

// Sorting, case and classes of `Qm` text. Letters, digits and punctuation are those of the C
// locale.

// Turns a text into its sort key. Case is folded; a run of blanks, hyphens, full stops and slashes
// becomes one blank; a precomposed letter equals the letter with its diacritic. A control code ends
// the key.
ZORBY_EXPORT void CSpConvertForCompare(std::string* text);

// Compares the sort keys of two texts. The result is below 0, 0 or above 0.
ZORBY_EXPORT int CSZorbyCompare(std::string a, std::string b);

// Compares two sort keys. The result is the difference of the first two bytes that differ, or 1 or
// -1 if one key is longer. A blank in `a` equals any ASCII punctuation in `b`, but not the other
// way round.
ZORBY_EXPORT int CSZorbyComparePreConv(std::string_view a, std::string_view b);

// Lowers ASCII letters and the special letters that have a lower-case partner. Precomposed capitals
// stay.
ZORBY_EXPORT void CSMakeLower(std::string& text);
// Raises ASCII letters and precomposed letters. Lower-case special letters stay.
ZORBY_EXPORT void CSMakeUpper(std::string& text);

// Each returns 1 if the `Qm` byte belongs to the class, else 0.
ZORBY_EXPORT int CSIsAlpha(unsigned char code);
ZORBY_EXPORT int CSIsNumeric(unsigned char code);      // ASCII digits only
ZORBY_EXPORT int CSIsPunctuation(unsigned char code);  // signs of subscript and superscript too
ZORBY_EXPORT int CSIsABlank(unsigned char code);       // what folds to a blank in a sort key
ZORBY_EXPORT int CSIsDiacritic(unsigned char code);
ZORBY_EXPORT int CSUsedToSort(unsigned char code);  // what has a place in the alphabet

}  // namespace zorby
