#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <tools/zorby-data/Faults.h>
#include <tools/zorby-data/Sections.h>

namespace datatool {

struct Cell {
    std::string_view bytes;
    std::size_t column = 1;  // of the first byte, from 1
};

std::vector<Cell> CellsOf(std::string_view line);

// A row of a section, read by the names of its columns. What a cell may not hold is added to the
// faults; its value is then the number that it holds after all, or 0, or empty. A row with a wrong
// number of cells is one fault.
class Row {
public:
    // `start` is the place of the row's first byte.
    Row(const Section& section, std::string_view line, const Place& start, Faults& faults);

    Place PlaceOf(std::string_view column) const;

    std::string Text(std::string_view column);
    // One character.
    char Code(std::string_view column);
    // One character, or NUL for an empty cell.
    char CodeOrNone(std::string_view column);
    // Three digits, from 001.
    unsigned Tag(std::string_view column);
    // 0 or 1.
    std::int32_t Flag(std::string_view column);
    // 1 or 2.
    int Which(std::string_view column);
    std::int32_t Signed(std::string_view column);
    std::uint32_t Unsigned(std::string_view column);

private:
    const Cell& At(std::string_view column) const;
    template <class Number>
    Number NumberAt(std::string_view column);
    void Fault(std::string_view column, std::string reason);

    std::vector<Cell> columns_;
    std::vector<Cell> cells_;
    Place start_;
    bool complete_;
    Faults& faults_;
};

}  // namespace datatool
