#pragma once

#include <string_view>

namespace quillory {

inline constexpr char kEscape = '\x1B';

// What an escape at the front of MARC-8 text does.
struct Marc8Escape {
    std::size_t size = 0;    // bytes of the escape; 0 if there is none
    std::string_view bytes;  // the escape, empty if it brings the default back
    std::size_t width = 1;   // bytes of a character of the set
    bool isG1 = false;       // designates the set of the high bytes
};

// Reads the escape at the front of `text`, which begins with 0x1B. By the MARC 21 specification of
// MARC-8 it ends with a final byte, or with "!" and a final byte. Before these stand "(" or "," for
// G0, or ")" or "-" for G1, and before those "$" for a set of three bytes a character. One of the
// letters s, g, b and p may also stand alone.
Marc8Escape ReadMarc8Escape(std::string_view text);

}  // namespace quillory
