#pragma once

#include <string>
#include <string_view>

namespace datatool {

inline constexpr std::size_t kTagDigits = 3;
inline constexpr unsigned kFirstDataField = 10;  // lower tags are those of control fields

// A cell is UTF-8 with the escapes \t, \n, \\ and \xHH, a byte of the one-byte code of the data
// files. `fault` is empty if the cell is in order.
struct CellText {
    std::string text;
    std::string fault;
};

CellText DecodeCell(std::string_view cell);
// Lines of plain UTF-8, without escapes.
CellText DecodeText(std::string_view utf8);
// A cell that gives the text back byte for byte.
std::string EncodeCell(std::string_view text);
// Lines that give the text back where it has a certain form in Unicode.
std::string EncodeText(std::string_view text);

}  // namespace datatool
