#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillory {

// What terminals take for colours.
constexpr const char* kBold = "\033[1m";
constexpr const char* kRed = "\033[31m";
constexpr const char* kYellow = "\033[33m";
constexpr const char* kCyan = "\033[36m";
constexpr const char* kPlain = "\033[0m";

// The text with bytes that are no UTF-8, and control characters, as "<1B>".
std::string Visible(std::string_view text);

// Columns that a text takes on a terminal.
std::size_t Columns(std::string_view text);

// Sets words one behind the other and begins a new line, in the text's column, before one that
// would pass the last column. Blanks stay as they are, but for those at a line's end.
class Line {
public:
    // Appends to `text`, in which `indent` columns of the line are used up. A width of 0 is no
    // limit.
    Line(std::size_t width, std::size_t indent, std::string& text)
        : width_(width), indent_(indent), text_(text), column_(indent) {}

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

}  // namespace quillory
