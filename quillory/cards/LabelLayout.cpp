#include <quillory/cards/LabelLayout.h>

#include <utility>

namespace quillory {
namespace {

constexpr double kLabelMargin = 1.5 * kPointsPerMillimetre;
constexpr int kSmallestFont = 5;

// A part of a label: a spine, or the label for a pocket.
struct Area {
    double left = 0;
    double width = 0;
    double height = 0;
};

// Sets texts one below the other. False if they have no room.
bool SetTexts(const std::vector<std::string>& texts, const Area& area, const zorby::CFont& font,
              bool mayBreak, Typesetter& typesetter, std::vector<PlacedLine>& lines) {
    const double width = area.width - 2 * kLabelMargin;
    const double height = typesetter.LineHeight(font);
    double y = kLabelMargin;
    bool hasRoom = true;
    for (const std::string& text : texts) {
        const SetText set = typesetter.Break(text, font, width, width);
        hasRoom = hasRoom && (mayBreak || set.lines.size() <= 1);
        for (const SetText::Line& line : set.lines) {
            const double indention = set.isRightToLeft ? width - line.width : 0;
            lines.push_back(
                {area.left + kLabelMargin + indention, y, line.text, font, set.isRightToLeft});
            y += height;
        }
    }
    return hasRoom && y + kLabelMargin <= area.height;
}

// In the largest font that leaves room for all lines. False if none does.
bool Fit(const std::vector<std::string>& texts, const Area& area, zorby::CFont font, bool mayBreak,
         Typesetter& typesetter, std::vector<PlacedLine>& lines) {
    for (;; --font.pointSize) {
        std::vector<PlacedLine> tried;
        const bool fits = SetTexts(texts, area, font, mayBreak, typesetter, tried);
        if (!fits && font.pointSize > kSmallestFont) continue;
        lines.insert(lines.end(), tried.begin(), tried.end());
        return fits;
    }
}

std::string OnOneLine(const std::vector<std::string>& parts) {
    std::string line;
    for (const std::string& part : parts) line.append(line.empty() ? "" : " ").append(part);
    return line;
}

}  // namespace

Panel LayOutLabel(const PrintItem& label, const LabelOptions& options, Typesetter& typesetter) {
    const LabelStock& stock = *options.stock;
    Panel panel;
    panel.width = (stock.spineWidth + stock.pocketWidth) * kPointsPerInch;
    panel.height = stock.height * kPointsPerInch;
    panel.isTurned = options.isTurned && stock.pocketWidth == 0;

    const std::vector<std::string> callNumber = label.Texts(kBlockCallNumber);
    std::vector<std::string> spine = callNumber;
    if (panel.isTurned) spine = {OnOneLine(callNumber)};
    for (std::string& line : label.Texts(kBlockLabelLine)) spine.push_back(std::move(line));
    Area area{0, stock.spineWidth * kPointsPerInch, panel.height};
    if (panel.isTurned) std::swap(area.width, area.height);
    panel.lacksRoom = !Fit(spine, area, options.font, false, typesetter, panel.lines);

    if (stock.pocketWidth > 0) {
        std::vector<std::string> pocket = label.Texts(kBlockPocket);
        pocket.insert(pocket.begin(), OnOneLine(callNumber));
        const Area beside{area.width, stock.pocketWidth * kPointsPerInch, panel.height};
        panel.lacksRoom =
            !Fit(pocket, beside, options.font, true, typesetter, panel.lines) || panel.lacksRoom;
    }
    return panel;
}

}  // namespace quillory
