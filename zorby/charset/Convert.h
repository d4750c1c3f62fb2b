#pragma once

#include <zorby/Export.h>

#include <string>

namespace zorby {

// Conversions between the `Qm` code and other codes. A text ends at its first zero byte. A function
// that takes a text by reference rewrites it in place.

// Converts MARC-8 subfield data to the `Qm` code. Bytes that can't be decoded are dropped without a
// word, and so are the structural bytes 0x1D to 0x1F. If several diacritics come before a letter,
// only the last of them moves after it.
ZORBY_EXPORT void CSMARCToZorby(std::string& text);

// Converts the `Qm` code to MARC-8. A text that ends in another alphabet is not closed by an
// escape. Right after a change of alphabet, a precomposed letter loses its diacritic, and a
// diacritic stays after its letter.
ZORBY_EXPORT void CSZorbyToMARC(std::string& text);

// Writes one display code for each byte of `source`, and a terminator. `target` needs room for the
// length of `source` and the terminator. `type` is a DisplayType. If `keepControls` is nonzero,
// tabs and line ends are kept.
ZORBY_EXPORT void CSQmToDisplay(const char* source, char* target, int type, int keepControls);

// Writes one plain letter or blank for each byte of `source`, and a terminator. `target` needs the
// same room.
ZORBY_EXPORT void CSQmToNonDiacritic(const char* source, char* target);

// Converts the `Qm` code to Latin-1. Returns 1 if the whole text was converted. At a character
// without a glyph in display type 1 the conversion stops and returns 0: the text is then what was
// written so far, followed by the old bytes.
ZORBY_EXPORT int CSQmToISO8859(std::string& text, int keepControls);

// Converts Latin-1 to the `Qm` code. Bytes that have no code are dropped without a word.
ZORBY_EXPORT void CSISO8859ToQm(std::string& text);

// Returns an upper bound for the size of the text in MARC-8, in bytes without the terminator.
ZORBY_EXPORT int CSQmGetWorstCaseSenarioMARCSize(const char* text);

// Returns whether the MARC-8 character at `position` is valid in the alphabet in force; an escape
// before the character takes effect. `consumed` gets the number of bytes looked at. It is at least
// 1, and the terminator is never passed unless the text is empty. The structural bytes 0x1D to 0x1F
// are valid.
ZORBY_EXPORT int CSMARCCharIsValid(const char* position, int* consumed);

// Returns the byte that shows a blank indicator in the current display type.
ZORBY_EXPORT unsigned char CSDotInMiddleOfLine();

}  // namespace zorby
