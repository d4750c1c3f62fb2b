#pragma once

#include <zorby/Export.h>

namespace zorby {

// Unicode of the characters of the `Qm` code, after the MARC-8 to Unicode mapping of the MARC 21
// code tables. Each code has one code point, below U+10000. The diacritics are the combining ones,
// and each half of a diacritic over two letters has its half mark, U+FE20 to U+FE23.

// Returns 0 for a code that is no character. The blank that carries a diacritic is a blank.
ZORBY_EXPORT char16_t CodePointOf(unsigned char code);

// Returns 0 for a code point that has no code of its own.
ZORBY_EXPORT unsigned char CodeOf(char32_t codePoint);

// A diacritic over two letters as one combining mark, which stands after the first of them.
struct DoubleDiacritic {
    unsigned char firstHalf;  // `Qm` codes
    unsigned char secondHalf;
    char16_t codePoint;
};

// Each returns null if there is none. The objects live as long as the library.
ZORBY_EXPORT const DoubleDiacritic* DoubleDiacriticOf(unsigned char firstHalf);
ZORBY_EXPORT const DoubleDiacritic* DoubleDiacriticAt(char32_t codePoint);

}  // namespace zorby
