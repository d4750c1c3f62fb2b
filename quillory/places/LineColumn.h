#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// A place in a text file as editors show it, counted from 1; zeros for none.
struct LineColumn {
    std::uint64_t line = 0;
    std::uint64_t column = 0;  // in characters, where the text is UTF-8

    friend bool operator==(const LineColumn&, const LineColumn&) = default;
};

// "line 3, column 14", as it stands in messages.
inline std::string LineColumnText(const LineColumn& place) {
    return "line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
}

}  // namespace quillory
