#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>

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
    HoldingsSettings settings;
    settings.Set("NextBarCode", barCode);
    settings.Save();
}

std::string CHoldingsSelector::GetNextAccNo() {
    return HoldingsSettings().Extra().Get(kUnisonNextAccNo);
}

void CHoldingsSelector::SetNextAccNo(std::string_view number) {
    HoldingsSettings settings;
    ExtraSettings extra = settings.Extra();
    extra.Set(kUnisonNextAccNo, number);
    settings.SetExtra(extra.Text());
    settings.Save();
}

std::string CHoldingsSelector::GetDynixIndicators() {
    return HoldingsSettings().Extra().DynixIndicators();
}

std::string CHoldingsSelector::GetFollettUnisonDCNLocation() {
    return HoldingsSettings().Extra().UnisonDCNLocation();
}

std::string CHoldingsSelector::GetLWLPCallTagAndSubs() {
    const ExtraSettings extra = HoldingsSettings().Extra();
    return extra.Get(kLwlpCallTag) + extra.Get(kLwlpSubTags);
}

std::string CHoldingsSelector::GetMandarinHoldingSubfields() {
    return HoldingsSettings().Extra().MandarinSubfields();
}

bool CInfoAboutHoldingsTypeList::IsSameHoldingsType(EHOLDINGSID id) {
    EHOLDINGSTYPE current = HT_NONE;
    CHoldingsSelector::GetCurrentHoldingsType(current);
    return current == GetHoldingsTypeFromHoldingsID(id) || HoldingsRowOf(current).Has(id);
}

const std::string& CHoldingsSelector::GetCurrentSettings() const {
    return currentSettings_;
}

}  // namespace zorby
