#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/text/detail/TagText.h>

namespace zorby {
namespace {

const HoldingsTypeRow& RowInForce() {
    return HoldingsRowOf(CHoldingsSelector::GetCurrentHoldingsTypeID());
}

}  // namespace

// The places of a system without elements are fixed.
std::string CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields() {
    const HoldingsTypeRow& row = RowInForce();
    if (row.tagsWithoutElements) return row.userDefinedFields();
    return HoldingsSettings().Extra().Get(kCustomAllFAndS);
}

std::string CHoldingsSelector::GetCustomCallNumber() {
    const HoldingsTypeRow& row = RowInForce();
    if (row.tagsWithoutElements) return row.callNumberPlace;
    return HoldingsSettings().Extra().CustomCallNumber();
}

std::string CHoldingsSelector::GetCustomBarCode() {
    const HoldingsTypeRow& row = RowInForce();
    if (row.tagsWithoutElements) return row.barCodePlace;
    return HoldingsSettings().Extra().CustomBarCode();
}

bool CHoldingsSelector::IsHoldingsField(unsigned tag) {
    const CInfoAboutHoldingsType* type = GetCurrentHoldingsType();
    return type && type->FindField(tag);
}

bool CHoldingsSelector::IsCustomHoldingTag(unsigned tag) {
    return CurrentHoldingsTypeIsCustom() &&
           GetCustomHoldingsFieldsAndSubfields().find(TagText(tag)) != std::string::npos;
}

bool CHoldingsSelector::IsHoldingsFieldForCapitalization(unsigned tag, char subfield) {
    const std::string fields = GetCustomHoldingsFieldsAndSubfields();
    const std::string tagText = TagText(tag);
    const std::size_t at = fields.find(tagText);
    if (at == std::string::npos) return false;
    const std::string rest = fields.substr(at + tagText.size());
    return rest.substr(0, rest.find(' ')).find(subfield) != std::string::npos;
}

void CHoldingsSelector::GetCurrentHoldingsFields(std::string& fields, std::string& callNumber,
                                                 std::string& barCode) {
    if (!HoldingsSettings().IsEasy()) {
        constexpr std::size_t kTagWidth = 3;
        fields = GetCustomHoldingsFieldsAndSubfields().substr(0, kTagWidth);
        callNumber = GetCustomCallNumber();
        barCode = GetCustomBarCode();
        return;
    }
    const CInfoAboutHoldingsType* type = GetCurrentHoldingsType();
    const HoldingsTypeRow& row = RowInForce();
    fields = type ? type->GetCurrentHoldingsFields() : "";
    callNumber = row.callNumberPlace;
    barCode = row.barCodePlace;
}

std::string CHoldingsSelector::GetUDFields() {
    if (!HoldingsSettings().IsEasy()) {
        return GetCustomBarCode() + " " + GetCustomCallNumber() + " " +
               GetCustomHoldingsFieldsAndSubfields();
    }
    const HoldingsTypeRow& row = RowInForce();
    return row.userDefinedFields ? row.userDefinedFields() : std::string();
}

}  // namespace zorby
