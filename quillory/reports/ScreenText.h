#pragma once

#include <quillory/text/Visible.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quillory {

// What terminals take for colours.
constexpr const char* kBold = "\033[1m";
constexpr const char* kRed = "\033[31m";
constexpr const char* kGreen = "\033[32m";
constexpr const char* kYellow = "\033[33m";
constexpr const char* kCyan = "\033[36m";
constexpr const char* kPlain = "\033[0m";

// Columns that a text takes on a terminal.
std::size_t Columns(std::string_view text);

// The text with blanks after it, or before it, up to so many columns.
std::string Padded(std::string text, std::size_t columns);
std::string RightAligned(const std::string& text, std::size_t columns);

// The columns of the widest cell in rows.
template <class Rows, class CellOf>
std::size_t Widest(const Rows& rows, CellOf cellOf) {
    std::size_t widest = 0;
    for (const auto& row : rows) widest = std::max(widest, Columns(std::invoke(cellOf, row)));
    return widest;
}

// Sets words one after the other and begins a new line, in the text's column, before one that
// would pass the last column.
class Line {
public:
    // Appends to `text`, in which `indent` columns of the line are used up. A width of 0 is no
    // limit.
    Line(std::size_t width, std::size_t indent, std::string& text)
        : width_(width), indent_(indent), text_(text), column_(indent) {}

    // Blanks stay as they are, except those at the end of a line.
    void Add(std::string_view visible);
    // A subfield code.
    void AddCode(std::string_view code, bool colour);

private:
    void AddWord(std::string_view blanks, std::string_view word);

    std::size_t width_;
    std::size_t indent_;
    std::string& text_;
    std::size_t column_;
};

// The words of a text in lines of at most 76 columns, each with so many blanks before it.
std::string Paragraph(const std::string& words, std::size_t indent);

}  // namespace quillory
