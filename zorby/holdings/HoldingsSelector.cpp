#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>

#include <algorithm>

namespace zorby {

const CInfoAboutHoldingsType* CHoldingsSelector::GetCurrentHoldingsType() {
    const HoldingsSettings settings;
    if (!settings.IsEasy()) return nullptr;
    return CInfoAboutHoldingsTypeList::FindFromName(settings.Get("HoldingsType"));
}

void CHoldingsSelector::GetCurrentHoldingsType(EHOLDINGSTYPE& type) {
    const CInfoAboutHoldingsType* current = GetCurrentHoldingsType();
    type = current ? current->GetHoldingsTypeID() : HT_CUSTOM;
}

EHOLDINGSTYPE CHoldingsSelector::GetCurrentHoldingsTypeID() {
    const CInfoAboutHoldingsType* current = GetCurrentHoldingsType();
    return current ? current->GetHoldingsTypeID() : HT_NONE;
}

std::string CHoldingsSelector::GetCurrentHoldingsTypeName() {
    const CInfoAboutHoldingsType* current = GetCurrentHoldingsType();
    return current ? current->GetName() : "Custom";
}

bool CHoldingsSelector::CurrentHoldingsTypeIsCustom() {
    return !HoldingsSettings().IsEasy() ||
           HoldingsRowOf(GetCurrentHoldingsTypeID()).tagsWithoutElements;
}

std::string CHoldingsSelector::GetNextBarCode() {
    return HoldingsSettings().Get("NextBarCode");
}

void CHoldingsSelector::SetNextBarCode(std::string_view barCode) {
    HoldingsSettings().Set("NextBarCode", barCode);
}

std::string CHoldingsSelector::GetNextAccNo() {
    return HoldingsSettings().GetExtra(kUnisonNextAccNo);
}

void CHoldingsSelector::SetNextAccNo(std::string_view number) {
    HoldingsSettings().SetExtra(kUnisonNextAccNo, number);
}

std::string CHoldingsSelector::GetDynixIndicators() {
    std::string indicators = HoldingsSettings().GetExtra(kDynixIndicators);
    indicators.resize(std::max<std::size_t>(indicators.size(), 2), '_');
    std::ranges::replace(indicators, ' ', '_');
    return indicators;
}

std::string CHoldingsSelector::GetFollettUnisonDCNLocation() {
    const HoldingsSettings settings;
    return settings.HasExtra() ? settings.GetExtra(kUnisonDCNLocation) : "900a";
}

std::string CHoldingsSelector::GetLWLPCallTagAndSubs() {
    const HoldingsSettings settings;
    return settings.GetExtra(kLwlpCallTag) + settings.GetExtra(kLwlpSubTags);
}

std::string CHoldingsSelector::GetMandarinHoldingSubfields() {
    return HoldingsSettings().GetExtraOr(kMandarinSubfields, "khip");
}

bool CInfoAboutHoldingsTypeList::IsSameHoldingsType(EHOLDINGSID id) {
    EHOLDINGSTYPE current = HT_NONE;
    CHoldingsSelector::GetCurrentHoldingsType(current);
    return current == GetHoldingsTypeFromHoldingsID(id) || HoldingsRowOf(current).Has(id);
}

}  // namespace zorby
