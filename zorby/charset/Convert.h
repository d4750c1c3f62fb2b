#pragma once

#include <zorby/Export.h>

#include <string>

namespace zorby {

// Conversions between the `Qm` code and the code spaces of the world outside. A text ends at its
// first zero byte. A function that takes a text by reference rewrites it in place.

// MARC-8 subfield data to the `Qm` code. Bytes that do not decode are dropped without a word, the
// structural bytes 0x1D to 0x1F among them. Only the last of several diacritics before a letter
// moves behind it.
ZORBY_EXPORT void CSMARCToZorby(std::string& text);

// The `Qm` code to MARC-8. No escape closes a text that ends in another alphabet. Straight after a
// change of alphabet a precomposed letter loses its diacritic, and a diacritic stays behind its
// letter.
ZORBY_EXPORT void CSZorbyToMARC(std::string& text);

// One display code for each byte of `source`, and a terminator. `target` has room for the length of
// `source` and its terminator. `type` is a DisplayType; `keepControls` keeps tab and line ends.
ZORBY_EXPORT void CSQmToDisplay(const char* source, char* target, int type, int keepControls);

// One plain letter or blank for each byte of `source`, and a terminator; same room.
ZORBY_EXPORT void CSQmToNonDiacritic(const char* source, char* target);

// The `Qm` code to Latin-1. Result 1 if all of it converted. At a character without a glyph in
// display type 1 it stops with 0: the text is then what was written so far, and behind it the old
// bytes.
ZORBY_EXPORT int CSQmToISO8859(std::string& text, int keepControls);

// Latin-1 to the `Qm` code. Bytes that have no code are dropped without a word.
ZORBY_EXPORT void CSISO8859ToQm(std::string& text);

// An upper bound of the size in MARC-8, in bytes without terminator.
ZORBY_EXPORT int CSQmGetWorstCaseSenarioMARCSize(const char* text);

// Whether one character of MARC-8 at `position`, in the alphabet in force, is valid; an escape
// before it takes effect. `consumed` gets the bytes looked at: at least 1 and, but for an empty
// text, never beyond its terminator. The structural bytes 0x1D to 0x1F are valid.
ZORBY_EXPORT int CSMARCCharIsValid(const char* position, int* consumed);

// The byte that shows a blank indicator in the current display type.
ZORBY_EXPORT unsigned char CSDotInMiddleOfLine();

}  // namespace zorby
