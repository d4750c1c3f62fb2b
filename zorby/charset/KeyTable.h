#pragma once

#include <zorby/Export.h>

namespace zorby {

// One character of the internal one-byte code, the `Qm` code, and what it is in every other code.
struct KeyRecord {
    const char* name;        // short name, null for a code that is no character
    unsigned char marc1;     // MARC-8 byte; for a precomposed letter, that of its base letter
    unsigned char marc2;     // 0, or the diacritic of a precomposed letter, written first in MARC-8
    unsigned char sort1;     // first byte of the sort key; 0x20 folds to a blank, 0xFF has no place
    unsigned char sort2;     // second byte of the sort key, 0 if none
    unsigned char alphabet;  // a QmAlphabet
    unsigned char key;       // code of the key that types it
    unsigned char displayAnsi;  // code in display type 1, kNoAnsiGlyph if the font has none
    unsigned char displayFont;  // code in display type 2
    unsigned char lower;        // code of the lower-case partner, 0 if none
};

enum QmAlphabet : unsigned char {
    kAlphabetBasic = 0,
    kAlphabetGreek = 1,
    kAlphabetSubscript = 2,
    kAlphabetSuperscript = 3,
    kAlphabetNone = 0x7F,  // the blank that carries a diacritic; no escape leads to it
};

inline constexpr unsigned char kNoAnsiGlyph = 1;

// Returns the row of a code. Every code from 0 to 255 has one.
ZORBY_EXPORT const KeyRecord& KeyRecordOf(unsigned char code);

// Returns the long name of a character by its string ID: 10000 + code for the codes 0x80 to 0xFF,
// and 10256 to 10266 for letters that exist only as a base letter with a diacritic. Returns null
// for any other ID.
ZORBY_EXPORT const char* CharacterLongName(unsigned stringID);

}  // namespace zorby
