#pragma once

#include <quillory/cards/CardOptions.h>
#include <quillory/cards/LabelOptions.h>

#include <vector>

namespace quillory {

// A point on paper, in points from its upper left corner.
struct PaperPoint {
    double x = 0;
    double y = 0;
};

// A sheet of paper and where the panels on it have their upper left corners.
struct Sheet {
    double width = 0;
    double height = 0;
    std::vector<PaperPoint> places;
};

enum Paper : std::int32_t { kPaperLetter, kPaperA4 };

// Cards one below the other in the middle of the paper; four on paper that lies on its side; one
// on a sheet of its own size.
Sheet CardSheet(const CardOptions& options, Paper paper);
Sheet LabelSheet(const LabelOptions& options);

}  // namespace quillory
