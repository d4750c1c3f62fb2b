#pragma once

#include <zorby/platform/Font.h>

#include <string>
#include <vector>

namespace quillory {

// A line of text at its place: the upper left corner of the line, from that of the panel.
struct PlacedLine {
    double x = 0;
    double y = 0;
    std::string text;
    zorby::CFont font;
    bool isRightToLeft = false;
};

// A card or a label as it is printed: one piece of paper. Lengths are in points.
struct Panel {
    double width = 0;
    double height = 0;
    std::vector<PlacedLine> lines;
    double holeCenter = 0;  // of a card's hole, from the upper edge; 0 for none
    bool isTurned =
        false;  // the text runs from the lower edge up; `lines` are told as if it did not
    bool lacksRoom = false;  // some of the text is outside
};

}  // namespace quillory
