#pragma once

#include <zorby/Export.h>

#include <string>

namespace zorby {

// The grid of special characters.
inline constexpr int kPaletteRows = 13;
inline constexpr int kPaletteColumns = 14;

// What a cell shows: a strip of glyphs, each 16 by 15 pixels, and the position in it from 1. Both
// are 0 for an empty cell.
struct PaletteCell {
    int strip = 0;
    int position = 0;
};

// Returns an empty cell outside the grid.
ZORBY_EXPORT PaletteCell PaletteCellAt(int column, int row);

// Returns the number of the character at a position of a strip, 0 if there is none. The numbers are
// those of CharacterLongName, which has the tool tips.
ZORBY_EXPORT unsigned PaletteId(PaletteCell cell);

// Returns what a character of the palette types, in the `Qm` code: one byte, or a letter and its
// diacritic. Any number that is no character gives two blanks.
ZORBY_EXPORT std::string PaletteText(unsigned id);

}  // namespace zorby
