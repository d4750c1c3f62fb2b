#pragma once

#include <string>

namespace zorby {

// A display font by its properties. The host chooses the font and maps this to its toolkit's own.
struct CFont {
    std::string faceName;
    int pointSize = 0;  // 0 leaves the size to the toolkit
    int weight = 400;   // 100 (thin) to 900 (heavy); 400 is normal and 700 bold
    bool italic = false;
};

}  // namespace zorby
