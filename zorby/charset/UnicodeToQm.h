#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// Text in Unicode, as a person types or pastes it, in a one-byte code.
struct ZORBY_EXPORT CodedText {
    // A stretch of the given text, in units of UTF-16: whole letters with all their marks.
    struct Stretch {
        std::size_t start;
        std::size_t length;
    };

    std::string text;
    // What the code has no place for, in order. `text` lacks it, and goes on after it.
    std::vector<Stretch> unplaced;
};

// Carries a text into the `Qm` code, whether its letters are precomposed or not. A letter given as
// one character becomes its precomposed code if there is one, and otherwise the letter and its
// diacritic. A diacritic alone goes to whatever letter is before it in the text to which it is
// added; a hook above needs its letter, or U+25CC.
//
// A letter has a place only if CSZorbyToMARC keeps it whole. So it can carry one diacritic, and
// with a hook above a second one, but none after a character of another alphabet. Tabs, line ends
// and the no-break blank have no place.
ZORBY_EXPORT CodedText UnicodeToQm(std::u16string_view text);

// Carries what UnicodeView shows back into the display code. For kDisplayANSI that is display type
// 1, of which each byte has one character, and otherwise the `Qm` code as above: the blank for a
// diacritic comes back as a blank, and a precomposed letter under a hook above taken apart.
ZORBY_EXPORT CodedText UnicodeToDisplay(std::u16string_view text, int type);

}  // namespace zorby
