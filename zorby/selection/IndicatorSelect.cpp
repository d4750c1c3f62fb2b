#include <zorby/format/MARCFormat.h>
#include <zorby/selection/IndicatorSelect.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>
#include <zorby/workforms/Template.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace zorby {

namespace {

using SelectId = CIndicatorSelect::Id;

constexpr const char* kUserDefined = "User defined indicator value";
constexpr const char* kSears = "Sears specified in $2";
constexpr unsigned kTagWithoutName = 1000;

constexpr ControlRow kIndicatorRows[] = {
    {ControlKind::kLabel, SelectId::kName, {}, {0, 0, 240, 16}},
    {ControlKind::kLabel, SelectId::kExplanation, {}, {0, 18, 240, 32}},
    {ControlKind::kList, SelectId::kCombo, {}, {0, 52, 240, 22}},
    {ControlKind::kText, SelectId::kUserValue, {}, {0, 78, 30, 22}},
    {ControlKind::kLabel,
     SelectId::kUserTip,
     "Enter a user defined indicator value here.",
     {36, 82, 204, 16}},
    {ControlKind::kCheck, SelectId::kAuto, "&Updated automatically by program", {0, 104, 240, 18}},
    {ControlKind::kLabel,
     SelectId::kAutoTip,
     "This indicator is automatically set by the program and can't be set here.",
     {0, 124, 240, 32}},
};
constexpr int kUserControls[] = {SelectId::kUserValue, SelectId::kUserTip};

constexpr std::array kAutomaticFirst = {130, 245, 630, 730, 740};
constexpr std::array kAutomaticSecond = {222, 240, 242, 243, 245, 440, 830};

bool IsUserValue(char value) {
    return value == '_' || ('0' <= value && value <= '9') || ('a' <= value && value <= 'z') ||
           ('A' <= value && value <= 'Z');
}

std::string_view TextOr(std::string_view text, std::string_view otherwise) {
    return text.empty() ? otherwise : text;
}

}  // namespace

void CIndicatorSelect::InitializeIndicatorSelect(WindowPort& parent, unsigned tag, char currentCode,
                                                 int isFirstIndicator, const Settings& settings) {
    tag_ = tag;
    currentCode_ = currentCode;
    isFirstIndicator_ = isFirstIndicator;
    settings_ = settings;
    if (controls_.IsEmpty()) {
        controls_.SetWindow(parent);
        controls_.Add(kIndicatorRows, settings.place);
    }
    controls_.At(kAuto).Check(settings.autoUpdate != 0);
    controls_.At(kUserValue).SetText({});
    SetControlState();
}

int CIndicatorSelect::IsIndicatorAutomatic(int tag, int isFirstIndicator) {
    const bool isAutomatic =
        isFirstIndicator ? std::ranges::find(kAutomaticFirst, tag) != kAutomaticFirst.end()
                         : std::ranges::find(kAutomaticSecond, tag) != kAutomaticSecond.end();
    return isAutomatic ? 1 : 0;
}

int CIndicatorSelect::IsCheckVisible() const {
    const int tag = static_cast<int>(tag_);
    return settings_.showAutoCheck && IsIndicatorAutomatic(tag, isFirstIndicator_) ? 1 : 0;
}

void CIndicatorSelect::SetControlState() {
    std::string name;
    std::string explanation;
    CMARCFormat::GetIndicatorNameFor(tag_, Which(), Option(), name);
    CMARCFormat::GetIndicatorExplanationFor(tag_, Which(), explanation);
    controls_.At(kName).SetText(TextOr(name, "Undefined"));
    controls_.At(kExplanation).SetText(TextOr(explanation, "This is an undefined indicator"));
    controls_.At(kName).Show(tag_ != kTagWithoutName);
    controls_.At(kAuto).Show(IsCheckVisible() != 0);
    LoadCombo();
    SetComboState();
    SetUserDefControls();
}

bool CIndicatorSelect::AllowsUserValues() const {
    const CInfoAboutField* field = CMARCFormat::FindField(tag_);
    return GetZorbyProfileInt(ZP_USMARCRulesSelIndConFld) != 1 ||
           (field && field->IsUserDefined() != 0);
}

// Of several entries with the code, the last one is selected. A subject heading may have two with
// the code 7, and then its $2 decides.
int CIndicatorSelect::EntryToSelect() const {
    const bool asksSubfield2 = Which() == 2 && currentCode_ == '7' &&
                               CGeneral::IsSubjectWithSecondInd(static_cast<int>(tag_)) != 0;
    const std::string* subfield2 = settings_.subfield2Text;
    int selected = -1;
    for (int i = 0; i < values_->GetSize(); ++i) {
        char code = 0;
        std::string text;
        values_->GetCodeAt(i, &code);
        values_->GetStringAt(i, text);
        if (code != currentCode_) continue;
        const bool agrees = subfield2 && (*subfield2 == "sears") == (text == kSears);
        if (!asksSubfield2 || agrees) selected = i;
    }
    return selected;
}

void CIndicatorSelect::LoadCombo() {
    values_ = CTemplate::MARCInfoIndicatorCodeAndText(tag_, Which(), Option(),
                                                      settings_.templateCode != 0);
    if (!values_) return;
    ListPort& list = controls_.List(kCombo);
    while (list.GetCount() > 0) list.Remove(list.GetCount() - 1);
    for (int i = 0; i < values_->GetSize(); ++i) {
        std::string text;
        values_->GetStringAt(i, text);
        list.Insert(i, text, 0);
    }
    int selected = EntryToSelect();
    const int userEntry = list.GetCount();
    if (selected < 0 || AllowsUserValues()) list.Insert(userEntry, kUserDefined, 0);
    if (selected < 0) {
        selected = userEntry;
        if (currentCode_) controls_.At(kUserValue).SetText({&currentCode_, 1});
    }
    list.Select(selected);
}

void CIndicatorSelect::GetComboString(std::string& text) const {
    const ListPort& list = controls_.List(kCombo);
    const int selected = list.GetSelected();
    text = selected < 0 ? std::string() : list.GetTextAt(selected);
}

bool CIndicatorSelect::IsUserValueChosen() const {
    std::string text;
    GetComboString(text);
    return text == kUserDefined;
}

char CIndicatorSelect::GetCode() const {
    std::string text;
    GetComboString(text);
    if (controls_.List(kCombo).GetSelected() < 0 || !values_) return 0;
    if (text == kUserDefined) {
        const std::string value = controls_.Text(kUserValue).GetText();
        return value.size() == 1 && IsUserValue(value.front()) ? value.front() : '\0';
    }
    char code = 0;
    values_->GetCodeFromString(text, &code);
    return code;
}

void CIndicatorSelect::SetComboState() const {
    const bool isAutomatic = IsCheckVisible() && settings_.autoUpdate;
    controls_.At(kCombo).Enable(!isAutomatic);
    controls_.At(kAutoTip).Show(isAutomatic);
}

void CIndicatorSelect::SetUserDefControls() const {
    controls_.Show(kUserControls, IsUserValueChosen());
}

void CIndicatorSelect::SetFocusToEdit() const {
    controls_.At(kUserValue).SetFocus();
}

void CIndicatorSelect::OnSetFocus() const {
    controls_.At(kCombo).SetFocus();
}

void CIndicatorSelect::OnCheckAuto() {
    settings_.autoUpdate = controls_.At(kAuto).IsChecked() ? 1 : 0;
    SetComboState();
}

int CIndicatorSelect::OnCmdMsg(int id, int code, TreeItem) {
    if (controls_.IsEmpty()) return 0;
    if (id == kAuto && code == CN_Clicked) {
        OnCheckAuto();
        return 1;
    }
    if (id != kCombo || code != CN_SelectionChanged) return 0;
    OnSelchangeCombo();
    return 1;
}

int CIndicatorSelect::GetAutoUpdateState() const {
    return settings_.autoUpdate;
}

}  // namespace zorby
