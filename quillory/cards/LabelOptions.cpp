#include <quillory/cards/LabelOptions.h>
#include <quillory/cards/PackedSetting.h>
#include <zorby/settings/ProfileKeys.h>

namespace quillory {
namespace {

constexpr int kMostSets = 99;

// Its key holds fonts in the way of those of cards, and is empty at first.
zorby::CFont ReadFont() {
    const PackedSetting fonts(zorby::ZP_OptionsLabelsFonts, "ZP_OptionsLabelsFonts");
    constexpr const char* kKey = "CallNumber";
    return fonts.Text(kKey).empty() ? zorby::CFont{"Courier", 10} : fonts.Font(kKey);
}

}  // namespace

LabelOptions LabelOptionsOfProfile() {
    const PackedSetting options(zorby::ZP_OptionsLabels, "ZP_OptionsLabels", "^^");
    LabelOptions result;
    result.stock = &StockNamed(options.Where("LabelType"), options.Text("LabelType"));
    result.verticalOffset = options.Number("LabelOffsetV", -kMostInches, kMostInches);
    result.horizontalOffset = options.Number("LabelOffsetH", -kMostInches, kMostInches);
    result.sets = options.WholeNumber("LabelNumberOfSets", 0, kMostSets);
    result.additionalSubfields = ParsePlaceList(options.Where("LabelAdditionalSubfields"),
                                                options.Text("LabelAdditionalSubfields"));
    result.isTurned = options.WholeNumber("LabelCallnumberOrientation", 0, 1) == 1;
    result.font = ReadFont();
    return result;
}

const LabelStock& StockNamed(const std::string& where, const std::string& name) {
    if (const LabelStock* stock = FindLabelStock(name); stock != nullptr) return *stock;
    std::string allowed = "one of";
    for (const LabelStock& stock : LabelStocks()) {
        allowed.append(allowed == "one of" ? " " : ", ").append(stock.name);
        allowed.append(" (").append(stock.text).append(")");
    }
    RefuseSetting(where, name, allowed);
}

}  // namespace quillory
