#include <quillory/cards/LabelStock.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr double kMillimetre = 1 / 25.4;
constexpr double kLetterWidth = 8.5;
constexpr double kLetterHeight = 11;
constexpr double kA4Width = 210 * kMillimetre;
constexpr double kA4Height = 297 * kMillimetre;

constexpr LabelStock kStocks[] = {
    {"S1", "spines of 1 x 1.5 in, 56 on letter paper", kLetterWidth, kLetterHeight, 8, 7, 0.25,
     0.25, 1, 1.5, 1, 1.5, 0},
    {"S2", "spines of 25 x 38 mm, 56 on A4", kA4Width, kA4Height, 8, 7, 5 * kMillimetre,
     15.5 * kMillimetre, 25 * kMillimetre, 38 * kMillimetre, 25 * kMillimetre, 38 * kMillimetre, 0},
    {"S3", "spines of 1.5 x 2 in, 25 on letter paper", kLetterWidth, kLetterHeight, 5, 5, 0.5, 0.5,
     1.5, 2, 1.5, 2, 0},
    {"SP1", "spines of 1 x 1.5 in, each with a pocket label of 3 x 1.5 in, 14 on letter paper",
     kLetterWidth, kLetterHeight, 2, 7, 0.25, 0.25, 4, 1.5, 1, 1.5, 3},
    {"SP2", "spines of 25 x 38 mm, each with a pocket label of 75 x 38 mm, 14 on A4", kA4Width,
     kA4Height, 2, 7, 5 * kMillimetre, 15.5 * kMillimetre, 100 * kMillimetre, 38 * kMillimetre,
     25 * kMillimetre, 38 * kMillimetre, 75 * kMillimetre},
};

}  // namespace

std::span<const LabelStock> LabelStocks() {
    return kStocks;
}

const LabelStock* FindLabelStock(std::string_view name) {
    const auto* const found = std::ranges::find(kStocks, name, &LabelStock::name);
    return found == std::end(kStocks) ? nullptr : found;
}

}  // namespace quillory
