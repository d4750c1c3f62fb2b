#include <zorby/controls/detail/FlagGuard.h>
#include <zorby/holdings/DlgHoldingsCustom.h>
#include <zorby/holdings/DlgHoldingsEasyEntry.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/detail/HoldingsGroups.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/holdings/detail/TypeNameList.h>

#include <algorithm>

namespace zorby {

namespace {

using Id = CHoldingsSelector::Id;

constexpr ControlRow kSelectorRows[] = {
    {ControlKind::kGroup, Id::kGroup, "Holdings", {0, 0, 430, 170}},
    {ControlKind::kRadio, Id::kEasy, "&Easy entry", {12, 22, 110, 18}},
    {ControlKind::kRadio, Id::kCustom, "&Custom", {12, 48, 110, 18}},
    {ControlKind::kList, Id::kTypes, {}, {130, 20, 200, 22}},
    {ControlKind::kButton, Id::kChange, "C&hange...", {338, 19, 80, 24}},
    {ControlKind::kLabel, Id::kCurrentHeading, "Current settings", {12, 76, 400, 16}},
    {ControlKind::kLabel, Id::kCurrentSettings, {}, {12, 94, 406, 66}},
};

std::string EasyDescription(HoldingsGroup group, const ExtraSettings& extra) {
    switch (group) {
        case HoldingsGroup::kDynix:
            return "\r\nIndicators: " + extra.DynixIndicators();
        case HoldingsGroup::kLwlp:
            return "\r\nCall Tag: " + extra.Get(kLwlpCallTag) +
                   "\tSubTags: " + extra.Get(kLwlpSubTags);
        case HoldingsGroup::kFollettUnison:
            return ", Next accession number: " + extra.Get(kUnisonNextAccNo) +
                   ", Location of default call number: " + extra.UnisonDCNLocation();
        case HoldingsGroup::kMandarin:
            return "Holdings Subfields: " + extra.MandarinSubfields();
        default:
            return {};
    }
}

std::string CustomDescription(const ExtraSettings& extra) {
    return "Holdings fields && subfields: " + extra.Get(kCustomAllFAndS) +
           ", Bar code subfield: " + extra.CustomBarCode() +
           ", Call number subfields: " + extra.CustomCallNumber();
}

std::string Description(const HoldingsSettings& settings) {
    if (settings.IsCustom()) return CustomDescription(settings.Extra());
    const std::string type = settings.Get("HoldingsType");
    const std::string start =
        IsMandarinEZTransfer(type) ? "" : "Next bar code: " + settings.Get("NextBarCode");
    return start + (settings.IsEasy() ? EasyDescription(GroupOfType(type), settings.Extra()) : "");
}

// A system that was renamed keeps its settings under its present name.
void TakePresentName(HoldingsSettings& settings) {
    const std::string stored = settings.Get("HoldingsType");
    const CInfoAboutHoldingsTypeList* types = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    for (int i = 0; types && i < types->GetSize(); ++i) {
        const std::vector<std::string>& names = types->GetAt(i)->GetNames();
        const auto former = names.empty() ? names.end() : names.begin() + 1;
        if (std::find(former, names.end(), stored) == names.end()) continue;
        return settings.Set("HoldingsType", names.front());
    }
}

}  // namespace

CHoldingsSelector::CHoldingsSelector() : settings_(std::make_unique<HoldingsSettings>("")) {}

CHoldingsSelector::~CHoldingsSelector() = default;

void CHoldingsSelector::InitializeYourself(WindowPort& window, const ControlBox& place) {
    window_ = &window;
    controls_ = {};
    controls_.SetWindow(window);
    controls_.Add(kSelectorRows, place);
    InitializeYourself(HoldingsSettings().Text());
}

void CHoldingsSelector::InitializeYourself(std::string_view settings) {
    const FlagGuard building(isBuilding_);
    *settings_ = HoldingsSettings(settings);
    TakePresentName(*settings_);
    if (!controls_.IsEmpty()) FillTypeNames(controls_.List(kTypes));
    SetButtonState();
    UpdateCurrentSettings();
}

std::string CHoldingsSelector::GetSettings() const {
    return settings_->Text();
}

void CHoldingsSelector::SaveSettings() const {
    settings_->Save();
}

bool CHoldingsSelector::HasBeenSet() const {
    return !settings_->Get("EasyOrCustom").empty();
}

std::string CHoldingsSelector::GetHoldingsType() const {
    return settings_->IsEasy() ? settings_->Get("HoldingsType") : "Custom";
}

int CHoldingsSelector::EasyEntryHoldingsDialog() {
    std::string type = settings_->Get("HoldingsType");
    std::string nextBarCode = settings_->Get("NextBarCode");
    std::string extra = settings_->Extra().Text();
    if (CDlgHoldingsEasyEntry(type, nextBarCode, extra, window_).DoModal() != kIdOk) return 0;
    settings_->Set("EasyOrCustom", "Easy");
    settings_->Set("HoldingsType", type);
    settings_->Set("NextBarCode", nextBarCode);
    settings_->SetExtra(extra);
    SetButtonState();
    UpdateCurrentSettings();
    return 1;
}

int CHoldingsSelector::CustomSettingsDialog() {
    std::string extra = settings_->Extra().Text();
    if (CDlgHoldingsCustom(extra, window_).DoModal() != kIdOk) return 0;
    settings_->SetExtra(extra);
    return 1;
}

void CHoldingsSelector::UpdateCurrentSettings() {
    currentSettings_ = Description(*settings_);
    if (!controls_.IsEmpty()) controls_.At(kCurrentSettings).SetText(currentSettings_);
}

void CHoldingsSelector::SetButtonState() {
    if (controls_.IsEmpty()) return;
    controls_.At(kEasy).Check(settings_->IsEasy());
    controls_.At(kCustom).Check(settings_->IsCustom());
    controls_.At(kTypes).Enable(settings_->IsEasy());
    SelectTypeName(controls_.List(kTypes), settings_->Get("HoldingsType"));
}

int CHoldingsSelector::OnCmdMsg(int id, int code, TreeItem) {
    if (isBuilding_ || controls_.IsEmpty()) return 0;
    if (id == kTypes && code == CN_SelectionChanged) {
        OnSelchangeTypes();
        return 1;
    }
    if (code != CN_Clicked || (id != kEasy && id != kCustom && id != kChange)) return 0;
    if (id == kEasy) OnEasy();
    if (id == kCustom) OnCustom();
    if (id == kChange) OnChange();
    return 1;
}

// After a cancelled dialog the buttons go back to what is in force.
void CHoldingsSelector::OnEasy() {
    if (isInEasy_) return;
    const FlagGuard guard(isInEasy_);
    if (EasyEntryHoldingsDialog()) settings_->Set("EasyOrCustom", "Easy");
    SetButtonState();
}

void CHoldingsSelector::OnCustom() {
    if (isInCustom_) return;
    const FlagGuard guard(isInCustom_);
    if (CustomSettingsDialog()) settings_->Set("EasyOrCustom", "Custom");
    SetButtonState();
    UpdateCurrentSettings();
}

void CHoldingsSelector::OnSelchangeTypes() {
    const std::string chosen = SelectedTypeName(controls_.List(kTypes));
    if (chosen.empty()) return;
    settings_->Set("HoldingsType", chosen);
    UpdateCurrentSettings();
    if (!IsMandarinEZTransfer(chosen)) return;
    settings_->Remove("NextBarCode");
    OnChange();
}

void CHoldingsSelector::OnChange() {
    if (settings_->IsEasy()) {
        const std::string type = settings_->Get("HoldingsType");
        std::string nextBarCode = settings_->Get("NextBarCode");
        std::string extra = settings_->Extra().Text();
        if (RunGroupDialog(type, nextBarCode, extra, window_)) {
            if (!IsMandarinEZTransfer(type)) settings_->Set("NextBarCode", nextBarCode);
            settings_->SetExtra(extra);
        }
    } else {
        CustomSettingsDialog();
    }
    UpdateCurrentSettings();
}

}  // namespace zorby
