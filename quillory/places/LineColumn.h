#pragma once

#include <cstdint>

namespace quillory {

// A place in a text file as editors show it, counted from 1; zeros for none.
struct LineColumn {
    std::uint64_t line = 0;
    std::uint64_t column = 0;  // in characters, where the text is UTF-8

    friend bool operator==(const LineColumn&, const LineColumn&) = default;
};

}  // namespace quillory
