#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>

#include <algorithm>
#include <utility>

namespace zorby {
namespace {

constexpr std::pair<EHOLDINGSTYPE, EHOLDINGSTYPE> kPairs[] = {
    {HT_FOLLETT, HT_FOLLETT_2},
    {HT_LWLP, HT_LWLP_2},
    {HT_TYPE_12, HT_TYPE_15},
};

}  // namespace

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
    return !HoldingsSettings().IsEasy() || GetCurrentHoldingsTypeID() == HT_MANDARIN_EZ;
}

std::string CHoldingsSelector::GetNextBarCode() {
    return HoldingsSettings().Get("NextBarCode");
}

void CHoldingsSelector::SetNextBarCode(std::string_view barCode) {
    HoldingsSettings().Set("NextBarCode", barCode);
}

std::string CHoldingsSelector::GetNextAccNo() {
    return HoldingsSettings().GetExtra("FollettUnisonNextAccNumber");
}

void CHoldingsSelector::SetNextAccNo(std::string_view number) {
    HoldingsSettings().SetExtra("FollettUnisonNextAccNumber", number);
}

std::string CHoldingsSelector::GetDynixIndicators() {
    std::string indicators = HoldingsSettings().GetExtra("DynixIndicators");
    indicators.resize(std::max<std::size_t>(indicators.size(), 2), '_');
    std::ranges::replace(indicators, ' ', '_');
    return indicators;
}

std::string CHoldingsSelector::GetFollettUnisonDCNLocation() {
    const HoldingsSettings settings;
    return settings.HasExtra() ? settings.GetExtra("FollettUnisonLocOfMasterCallNumber") : "900a";
}

std::string CHoldingsSelector::GetLWLPCallTagAndSubs() {
    const HoldingsSettings settings;
    return settings.GetExtra("LWLPCallTag") + settings.GetExtra("LWLPSubTags");
}

std::string CHoldingsSelector::GetMandarinHoldingSubfields() {
    return HoldingsSettings().GetExtraOr("MandarinEZTransferHoldingsSubfields", "khip");
}

bool CInfoAboutHoldingsTypeList::IsSameHoldingsType(EHOLDINGSID id) {
    EHOLDINGSTYPE current = HT_NONE;
    CHoldingsSelector::GetCurrentHoldingsType(current);
    const EHOLDINGSTYPE family = GetHoldingsTypeFromHoldingsID(id);
    return current == family || std::ranges::any_of(kPairs, [&](const auto& pair) {
               return pair == std::pair(family, current) || pair == std::pair(current, family);
           });
}

}  // namespace zorby
