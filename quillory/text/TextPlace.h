#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillory {

// A place in a text as editors tell it.
struct TextPlace {
    std::uint64_t line = 1;
    std::uint64_t column = 1;  // in characters, where the text is UTF-8
    std::size_t indent = 0;    // blanks at the front of the line, as far as the place
    bool inIndent = true;      // nothing but blanks before the place

    void Pass(std::string_view text);
    TextPlace After(std::string_view text) const;
};

}  // namespace quillory
