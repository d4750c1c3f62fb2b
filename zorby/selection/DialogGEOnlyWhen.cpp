#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/selection/DialogGEOnlyWhen.h>
#include <zorby/settings/Profile.h>

#include <array>

namespace zorby {

namespace {

using Dialog = CDialogGEOnlyWhen;
using enum ControlKind;

constexpr std::array kTextTests = {"Contains", "Does not contain"};
constexpr std::array kEmptyTests = {"Is empty or missing", "Is not empty"};
constexpr int kTextTestCount = static_cast<int>(kTextTests.size());

constexpr ControlRow kOnlyWhenRows[] = {
    {kRadio, Dialog::kAlways, "A&lways", {10, 10, 400, 18}},
    {kRadio, Dialog::kOnlyWhen, {}, {10, 32, 400, 18}},
    {kGroup, Dialog::kFirst + Dialog::kHeading, {}, {10, 56, 420, 86}},
    {kList, Dialog::kFirst + Dialog::kSubject, {}, {20, 76, 210, 22}},
    {kList, Dialog::kFirst + Dialog::kCondition, {}, {236, 76, 184, 22}},
    {kText, Dialog::kFirst + Dialog::kText, {}, {20, 106, 280, 22}},
    {kCheck, Dialog::kFirst + Dialog::kMatchCase, "&Match case", {310, 108, 110, 18}},
    {kRadio, Dialog::kBoth, "&Both conditions", {20, 150, 200, 18}},
    {kRadio, Dialog::kEither, "&Either condition", {230, 150, 200, 18}},
    {kGroup, Dialog::kSecond + Dialog::kHeading, "Condition 2", {10, 174, 420, 86}},
    {kList, Dialog::kSecond + Dialog::kSubject, {}, {20, 194, 210, 22}},
    {kList, Dialog::kSecond + Dialog::kCondition, {}, {236, 194, 184, 22}},
    {kText, Dialog::kSecond + Dialog::kText, {}, {20, 224, 280, 22}},
    {kCheck, Dialog::kSecond + Dialog::kMatchCase, "Mat&ch case", {310, 226, 110, 18}},
    {kLabel, Dialog::kError, {}, {10, 268, 420, 32}},
};
constexpr int kBasicControls[] = {
    Dialog::kFirst + Dialog::kHeading,   Dialog::kFirst + Dialog::kSubject,
    Dialog::kFirst + Dialog::kCondition, Dialog::kFirst + Dialog::kText,
    Dialog::kFirst + Dialog::kMatchCase, Dialog::kAdvanced,
};
constexpr int kOnlyWhenAdvanced[] = {
    Dialog::kBoth,
    Dialog::kEither,
    Dialog::kSecond + Dialog::kHeading,
    Dialog::kSecond + Dialog::kSubject,
    Dialog::kSecond + Dialog::kCondition,
    Dialog::kSecond + Dialog::kText,
    Dialog::kSecond + Dialog::kMatchCase,
};

int DataOf(char code) {
    return static_cast<unsigned char>(code);
}

void SelectByData(ListPort& combo, int data) {
    int index = combo.GetCount() - 1;
    while (index >= 0 && combo.GetDataAt(index) != data) --index;
    combo.Select(index);
}

int SelectedData(const ListPort& combo) {
    const int selected = combo.GetSelected();
    return selected < 0 ? 0 : combo.GetDataAt(selected);
}

bool IsTextTest(CONTAIN_TYPE type) {
    return type == CT_CONTAINS || type == CT_DOES_NOT_CONTAIN;
}

bool LacksText(const OnlyWhenTest& test) {
    return IsTextTest(test.containType) && test.containsText.empty();
}

}  // namespace

CDialogGEOnlyWhen::CDialogGEOnlyWhen(std::string_view title, std::string_view tagText,
                                     std::string_view stateText, int withDelimiters, int showAlways,
                                     int withPrefix, int textTestsOnly, int restrictOwnItem,
                                     WindowPort* parent)
    : CDialogAdv(parent),
      title_(title),
      tagText_(tagText),
      stateText_(stateText),
      withDelimiters_(withDelimiters),
      showAlways_(showAlways),
      withPrefix_(withPrefix),
      textTestsOnly_(textTestsOnly != 0),
      restrictOwnItem_(restrictOwnItem != 0) {
    ParseTag();
    state_.InitializeOnlyWhenState(tagText_, stateText_);
}

void CDialogGEOnlyWhen::ParseTag() {
    COnlyWhenState parsed;
    parsed.tagText = tagText_;
    parsed.ParseTag();
    tag_ = parsed.parsedTag;
    subfield_ = parsed.parsedSubfield;
    holdingsMode_ = parsed.parsedHoldingsID;
    isHoldingsTag_ = tagText_.find("HLD") != std::string::npos;
}

void CDialogGEOnlyWhen::OnInitDialog() {
    Window().SetTitle(title_);
    Controls().Add(kOnlyWhenRows);
    AddAdvancedButton(10, 306);
    AddOkAndCancel(262, 306);
    Controls().At(kError).Show(false);
    LoadCombos();
    SetupControls();
}

void CDialogGEOnlyWhen::LoadCombos() {
    for (const int test : {kFirst, kSecond}) {
        ListPort& conditions = Controls().List(test + kCondition);
        for (const char* text : kTextTests) conditions.Insert(conditions.GetCount(), text, 0);
        RestrictCombo(conditions, 0);
        LoadSubjects(Controls().List(test + kSubject));
    }
}

void CDialogGEOnlyWhen::LoadSubjects(ListPort& combo) const {
    combo.Insert(0, IsHoldingsMode() ? "Any holding" : "Any subfield", 0);
    if (IsHoldingsMode()) {
        const CInfoAboutHoldingsType* type = CHoldingsSelector::GetCurrentHoldingsType();
        for (int i = 0; type && i < type->GetSize(); ++i) {
            const CInfoAboutHoldingsField& field = *type->GetAt(i);
            combo.Insert(i + 1, field.GetName(), field.GetHoldingsID());
        }
        return;
    }
    const auto option = static_cast<EDISPLAYOPTIONS>(GetZorbyProfileInt(ZP_DisplayNameOrMARC));
    const auto tag = static_cast<unsigned>(tag_);
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    for (const char code : codes) {
        std::string name;
        CMARCFormat::SubfieldName(tag, code, option, name);
        combo.Insert(combo.GetCount(), name, DataOf(code));
    }
}

// An entry's index is its CONTAIN_TYPE.
void CDialogGEOnlyWhen::RestrictCombo(ListPort& combo, int restrict) const {
    if (restrict) {
        while (combo.GetCount() > kTextTestCount) combo.Remove(combo.GetCount() - 1);
        return;
    }
    if (textTestsOnly_ || combo.GetCount() > kTextTestCount) return;
    for (const char* text : kEmptyTests) combo.Insert(combo.GetCount(), text, 0);
}

void CDialogGEOnlyWhen::SelectComboItem(ListPort& combo, char code) {
    SelectByData(combo, DataOf(code));
}

void CDialogGEOnlyWhen::SelectComboItem(ListPort& combo, EHOLDINGSID id) {
    SelectByData(combo, id);
}

void CDialogGEOnlyWhen::SetupControls() {
    Controls().At(kAlways).Check(!state_.onlyWhen);
    Controls().At(kOnlyWhen).Check(state_.onlyWhen);
    Controls().At(kBoth).Check(state_.bothConditions);
    Controls().At(kEither).Check(!state_.bothConditions);
    SetupTest(kFirst, state_.first);
    SetupTest(kSecond, state_.second);
    ShowBasic(state_.onlyWhen);
    SetAdvanced(state_.advanced);
}

void CDialogGEOnlyWhen::SetupTest(int test, const OnlyWhenTest& values) {
    ListPort& subjects = Controls().List(test + kSubject);
    ListPort& conditions = Controls().List(test + kCondition);
    Controls().Text(test + kText).SetText(values.containsText);
    Controls().At(test + kMatchCase).Check(values.matchCase);
    const int type = values.containType;
    conditions.Select(0 <= type && type < conditions.GetCount() ? type : -1);
    if (values.anySubfield) {
        subjects.Select(0);
    } else if (IsHoldingsMode()) {
        SelectComboItem(subjects, values.holdingsID);
    } else {
        SelectComboItem(subjects, values.subfield);
    }
    OnSelchangeCondition(test);
    OnSelchangeSubject(test);
}

void CDialogGEOnlyWhen::ShowBasic(int show) {
    Controls().Show(kBasicControls, show != 0);
}

// "Always" hides both tests.
void CDialogGEOnlyWhen::ShowAdvanced(int show) {
    Controls().Show(kOnlyWhenAdvanced, show != 0 && state_.onlyWhen);
    SetAdvancedControlState();
}

void CDialogGEOnlyWhen::SetAdvancedControlState() {
    Controls().At(kOnlyWhen).SetText(IsAdvanced() ? "&Only when the following conditions are met"
                                                  : "&Only when the following condition is met");
    Controls().At(kFirst + kHeading).SetText(IsAdvanced() ? "Condition 1" : "Condition");
}

void CDialogGEOnlyWhen::OnRadioAlways() {
    state_.onlyWhen = false;
    ShowBasic(0);
    ShowAdvanced(0);
}

void CDialogGEOnlyWhen::OnRadioOnlywhen() {
    state_.onlyWhen = true;
    ShowBasic(1);
    ShowAdvanced(IsAdvanced());
}

void CDialogGEOnlyWhen::OpenText(int test, bool open) const {
    Controls().At(test + kText).Enable(open);
    Controls().At(test + kMatchCase).Enable(open);
}

void CDialogGEOnlyWhen::OnSelchangeSubject(int test) {
    ListPort& conditions = Controls().List(test + kCondition);
    const ListPort& subjects = Controls().List(test + kSubject);
    const bool isAny = subjects.GetSelected() == 0;
    conditions.Enable(!isAny);
    if (isAny) {
        conditions.Select(0);
        return OpenText(test, true);
    }
    const int data = SelectedData(subjects);
    const bool isOwn = data != 0 && (data == DataOf(subfield_) || data == holdingsMode_);
    const bool losesSelected = conditions.GetSelected() >= kTextTestCount;
    RestrictCombo(conditions, restrictOwnItem_ && isOwn);
    if (!losesSelected || conditions.GetSelected() >= 0) return;
    conditions.Select(0);
    OnSelchangeCondition(test);
}

void CDialogGEOnlyWhen::OnSelchangeCondition(int test) {
    OpenText(test, Controls().List(test + kCondition).GetSelected() < kTextTestCount);
}

int CDialogGEOnlyWhen::OnCmdMsg(int id, int code, TreeItem item) {
    if (code == CN_SelectionChanged) {
        if (id == kFirst + kSubject) OnSelchangeComboSubfield1();
        if (id == kSecond + kSubject) OnSelchangeComboSubfield2();
        if (id == kFirst + kCondition) OnSelchangeComboCondition1();
        if (id == kSecond + kCondition) OnSelchangeComboCondition2();
        return 1;
    }
    if (code != CN_Clicked || id < kBoth || kOnlyWhen < id) {
        return CDialogAdv::OnCmdMsg(id, code, item);
    }
    if (id == kAlways) OnRadioAlways();
    if (id == kOnlyWhen) OnRadioOnlywhen();
    if (id == kBoth) OnRadioBoth();
    if (id == kEither) OnRadioEither();
    return 1;
}

// A condition that is refused leaves no trace in the next one.
void CDialogGEOnlyWhen::OnOK() {
    const COnlyWhenState before = state_;
    const std::string missing = state_.onlyWhen ? ReadTests() : std::string();
    if (!missing.empty()) {
        state_ = before;
        Controls().At(kError).SetText(missing);
        return Controls().At(kError).Show(true);
    }
    if (!state_.onlyWhen) state_.SetDefaults();
    state_.SaveState(stateText_);
    state_.MakeLongString(description_, withDelimiters_, showAlways_, withPrefix_);
    EndDialog(kIdOk);
}

// Control fields have no subfields: a test of one looks at all of it.
std::string CDialogGEOnlyWhen::ReadTests() {
    const bool isControlField = 1 <= tag_ && tag_ <= 9;
    state_.advanced = IsAdvanced();
    std::string missing = MissingSubject();
    if (!missing.empty()) return missing;
    ReadSubject(kFirst, state_.first);
    if (isControlField) state_.first.anySubfield = true;
    ReadSubject(kSecond, state_.second);
    ReadPredicate(kFirst, state_.first);
    ReadPredicate(kSecond, state_.second);
    const std::string lacksText = "You must provide search text";
    if (LacksText(state_.first)) {
        return lacksText + (IsAdvanced() ? " for the first condition." : " for the condition.");
    }
    if (IsAdvanced() && LacksText(state_.second)) return lacksText + " for the second condition.";
    return {};
}

std::string CDialogGEOnlyWhen::MissingSubject() const {
    constexpr int kFirstTagWithSubfields = 10;
    if (Controls().List(kFirst + kSubject).GetSelected() >= 0) return {};
    if (tag_ == 0) return "You must select a holding";
    return tag_ >= kFirstTagWithSubfields ? "You must select a subfield" : "";
}

void CDialogGEOnlyWhen::ReadSubject(int test, OnlyWhenTest& values) {
    const int data = SelectedData(Controls().List(test + kSubject));
    values.anySubfield = data == 0;
    values.subfield = IsHoldingsMode() ? '\0' : static_cast<char>(data);
    values.holdingsID = static_cast<EHOLDINGSID>(IsHoldingsMode() ? data : 0);
    if (IsHoldingsMode() && data != 0) {
        state_.tagText = "\\HLD" + std::to_string(data) + "\\";
    }
}

// A list without a selection counts as its first entry.
void CDialogGEOnlyWhen::ReadPredicate(int test, OnlyWhenTest& values) const {
    const int selected = Controls().List(test + kCondition).GetSelected();
    values.containType = selected < 0 ? CT_CONTAINS : static_cast<CONTAIN_TYPE>(selected);
    const bool hasText = IsTextTest(values.containType);
    values.containsText = hasText ? Controls().Text(test + kText).GetText() : std::string();
    values.matchCase = hasText && Controls().At(test + kMatchCase).IsChecked();
}

const std::string& CDialogGEOnlyWhen::GetDescription() const {
    return description_;
}

const std::string& CDialogGEOnlyWhen::GetStateText() const {
    return stateText_;
}

void CDialogGEOnlyWhen::OnRadioBoth() {
    state_.bothConditions = true;
}

void CDialogGEOnlyWhen::OnRadioEither() {
    state_.bothConditions = false;
}

}  // namespace zorby
