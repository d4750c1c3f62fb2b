#pragma once

#include <span>
#include <string_view>

namespace quillory {

// Sheets of labels. Lengths are in inches; the sheet is filled row by row.
struct LabelStock {
    std::string_view name;  // as ZP_OptionsLabels has it in LabelType
    std::string_view text;  // for a person
    double paperWidth;
    double paperHeight;
    int columns;
    int rows;
    double left;  // of the first label
    double top;
    double pitchX;  // from a label to the next one
    double pitchY;
    double spineWidth;
    double height;
    double pocketWidth;  // of the label for the pocket beside that for the spine; 0 for none
};

std::span<const LabelStock> LabelStocks();
// Null if there is none of this name.
const LabelStock* FindLabelStock(std::string_view name);

}  // namespace quillory
