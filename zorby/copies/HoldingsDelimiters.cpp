#include <zorby/copies/HoldingsDelimiters.h>

#include <array>
#include <cstddef>

namespace zorby {
namespace {

constexpr int kFirstLabel = 9;
constexpr std::array kLabels = {"Funds:", "Accession:", "Policy:", "Vendor:", "Inventory:"};

}  // namespace

const char kcHoldingsDelimiter = '|';
const char kcFollettSubXDelimiter = '@';
const char kcFollettCategoryDelimiter = ',';
const char* const kpFollettSubXMarker = "FSC";

const char* AlexandriaLabel(int place) {
    const int label = place - kFirstLabel;
    const bool isOne = 0 <= label && label < static_cast<int>(kLabels.size());
    return isOne ? kLabels[static_cast<std::size_t>(label)] : nullptr;
}

}  // namespace zorby
