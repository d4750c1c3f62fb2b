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
};

}  // namespace zorby
