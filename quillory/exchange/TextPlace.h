#pragma once

#include <quillory/places/LineColumn.h>

#include <cstddef>
#include <string_view>

namespace quillory {

// A place in a text that is passed from front to back.
struct TextPlace {
    LineColumn at{1, 1};
    std::size_t indent = 0;  // blanks at the front of the line, as far as the place
    bool inIndent = true;    // nothing but blanks before the place

    void Pass(std::string_view text);
    // Where the place would be after more text.
    LineColumn After(std::string_view text) const;
};

}  // namespace quillory
