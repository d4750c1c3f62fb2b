#pragma once

#include <zorby/platform/Font.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Lengths on paper are in points, 72 to the inch.
inline constexpr double kPointsPerInch = 72;
inline constexpr double kPointsPerMillimetre = kPointsPerInch / 25.4;

// A text broken into lines.
struct SetText {
    struct Line {
        std::string text;
        double width = 0;
    };
    std::vector<Line> lines;
    bool isRightToLeft = false;  // the text as a whole, by its first letter
};

// Knows how wide text is in a font.
class Typesetter {
public:
    virtual ~Typesetter() = default;

    virtual double LineHeight(const zorby::CFont& font) = 0;
    // Breaks a text, between words where that is possible, into a first line and others that are at
    // most so wide.
    virtual SetText Break(std::string_view utf8, const zorby::CFont& font, double firstWidth,
                          double width) = 0;
};

}  // namespace quillory
