#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A text as a screen that speaks Unicode shows it, with the places of its bytes.
//
// In display type 2, and so in the `Qm` code, a diacritic becomes a combining mark after its
// letter, and the letter with its marks is one thing on screen. A hook above (0xA2) stands before
// its letter and is shown after it, or on a dotted circle if no letter follows. Two letters under
// one ligature or tilde share one mark. In display type 1 each byte is shown as a character of its
// own, and a character without a glyph as U+25A1.
//
// Tabs and line ends stay. Any other byte that is no character is shown as the picture of a
// control, U+2400 to U+2421. All code points are below U+10000, so a unit of UTF-16 is one code
// point.
class ZORBY_EXPORT UnicodeView {
public:
    // `type` is kDisplayANSI for a text in display type 1. For any other type the text is in the
    // `Qm` code, as which display type 2 is laid out.
    UnicodeView(std::string_view text, int type);

    const std::u16string& Text() const;

    // Positions are between characters, from 0 to the length. The place of a byte in units, and of
    // a unit in bytes; a later position never comes before an earlier one. A position that one side
    // lacks counts as the end of its letter.
    std::size_t UnitAt(std::size_t byte) const;
    std::size_t ByteAt(std::size_t unit) const;

    // Where the letter begins or ends inside which a position in bytes is. A position between two
    // letters stays.
    std::size_t LetterStart(std::size_t byte) const;
    std::size_t LetterEnd(std::size_t byte) const;

private:
    // A letter that isn't one byte shown as one unit.
    struct Letter {
        std::size_t byte;
        std::size_t byteEnd;
        std::size_t unit;
        std::size_t unitEnd;
    };
    class Builder;

    const Letter* LetterAround(std::size_t byte) const;

    std::size_t size_;  // bytes
    std::u16string units_;
    std::vector<Letter> letters_;
};

}  // namespace zorby
