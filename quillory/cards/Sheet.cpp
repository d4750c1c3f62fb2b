#include <quillory/cards/CardLayout.h>
#include <quillory/cards/Sheet.h>

#include <utility>

namespace quillory {
namespace {

constexpr PaperPoint kLetter{8.5 * kPointsPerInch, 11 * kPointsPerInch};
constexpr PaperPoint kA4{210 * kPointsPerMillimetre, 297 * kPointsPerMillimetre};

}  // namespace

Sheet CardSheet(const CardOptions& options, Paper paper) {
    const int count = options.cardsPerSheet;
    const int columns = count == 4 ? 2 : 1;
    const int rows = count / columns;
    const PaperPoint size = paper == kPaperA4 ? kA4 : kLetter;
    Sheet sheet{size.x, size.y, {}};
    if (columns > 1) std::swap(sheet.width, sheet.height);
    if (count == 1) sheet = {kCardWidth, kCardHeight, {}};
    const double left = (sheet.width - columns * kCardWidth) / 2;
    const double top = (sheet.height - rows * kCardHeight) / 2;
    for (int i = 0; i < count; ++i) {
        const int row = i / columns;
        const int column = i % columns;
        sheet.places.push_back(
            {left + column * kCardWidth + options.horizontalOffset * kPointsPerInch,
             top + row * kCardHeight + options.verticalOffset * kPointsPerInch});
    }
    return sheet;
}

Sheet LabelSheet(const LabelOptions& options) {
    const LabelStock& stock = *options.stock;
    Sheet sheet{stock.paperWidth * kPointsPerInch, stock.paperHeight * kPointsPerInch, {}};
    for (int row = 0; row < stock.rows; ++row) {
        for (int column = 0; column < stock.columns; ++column) {
            sheet.places.push_back(
                {(stock.left + column * stock.pitchX + options.horizontalOffset) * kPointsPerInch,
                 (stock.top + row * stock.pitchY + options.verticalOffset) * kPointsPerInch});
        }
    }
    return sheet;
}

}  // namespace quillory
