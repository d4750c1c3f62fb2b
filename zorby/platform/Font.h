#pragma once

#include <string>

namespace zorby {

// A display font, described by its properties. The host chooses the font and maps it to one of its
// toolkit.
struct CFont {
    std::string faceName;
    int pointSize = 0;  // 0 leaves the size to the toolkit
    int weight = 400;   // 100 (thin) to 900 (heavy); 400 is normal and 700 bold
    bool italic = false;
    // In pixels at 96 dots to the inch, above 0 of a line and below 0 of its letters. 0 leaves it
    // to the point size.
    int height = 0;

    bool operator==(const CFont&) const = default;
};

}  // namespace zorby
