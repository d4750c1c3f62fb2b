#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/platform/detail/Decimal.h>
#include <zorby/selection/DialogGEGetText.h>
#include <zorby/selection/DialogGEOnlyWhen.h>
#include <zorby/selection/DlgSelectSubfield.h>
#include <zorby/settings/Profile.h>

#include <algorithm>
#include <tuple>

namespace zorby {

namespace {

using Id = CDialogGEGetText::Id;

constexpr ControlRow kGetTextRows[] = {
    {ControlKind::kLabel, Id::kField, {}, {10, 12, 300, 16}},
    {ControlKind::kLabel, Id::kSubfield, {}, {10, 32, 300, 16}},
    {ControlKind::kButton, Id::kSelect, {}, {320, 10, 100, 24}},
    {ControlKind::kLabel, Id::kCondition, {}, {10, 98, 300, 48}},
    {ControlKind::kButton, Id::kOnlyWhen, "&Only when...", {320, 96, 100, 24}},
};
constexpr int kGetTextAdvanced[] = {Id::kCondition, Id::kOnlyWhen};

constexpr std::string_view kHoldingsMark = "HLD";

bool NamesHolding(std::string_view text) {
    return text.find(kHoldingsMark) != std::string_view::npos;
}

EHOLDINGSID ElementOf(std::string_view tagText) {
    const std::size_t start = std::min(tagText.find_first_not_of("\\HLD"), tagText.size());
    return static_cast<EHOLDINGSID>(DecimalInt(tagText.substr(start)));
}

}  // namespace

CDialogGEGetText::CDialogGEGetText(std::string_view tagText, std::string_view stateText,
                                   WindowPort* parent)
    : CDialogAdv(parent), tagText_(tagText) {
    state_.InitializeOnlyWhenState(tagText_, stateText);
    state_.keys.GetKey("Tag", tagText_);
    isHolding_ = NamesHolding(tagText_);
    CHoldingsSelector::GetCurrentHoldingsType(holdingsType_);
}

void CDialogGEGetText::ParseState(std::string_view stateText, std::string& tagText, bool& isHolding,
                                  EHOLDINGSID& id, std::string& description) {
    CKeysNValues keys;
    keys.Set(stateText, true);
    tagText.clear();
    keys.GetKey("Tag", tagText);
    CDialogGEGetText dialog(tagText, stateText, nullptr);
    isHolding = dialog.isHolding_;
    id = isHolding ? ElementOf(tagText) : EHOLDINGSID{};
    dialog.UpdateSelect(false);
    dialog.state_.InitializeOnlyWhenState(tagText, stateText);
    dialog.MakeDescription();
    description = dialog.description_;
}

std::string CDialogGEGetText::GetState() {
    std::string text;
    state_.SaveState(text);
    return text;
}

void CDialogGEGetText::OnInitDialog() {
    Window().SetTitle("Get Text");
    Controls().Add(kGetTextRows);
    AddAdvancedButton(10, 60);
    AddOkAndCancel(252, 152);
    UpdateSelect(true);
    UpdateOnlyWhen(kCondition, &state_);
    SetAdvanced(state_.onlyWhen);
}

void CDialogGEGetText::ShowAdvanced(int show) {
    Controls().Show(kGetTextAdvanced, show != 0);
}

// Reads a text by its length alone.
void CDialogGEGetText::GetFieldInfo(std::string_view text, unsigned& tag, char& subfield) {
    constexpr std::size_t kTagWidth = 3;
    tag = 0;
    subfield = 0;
    const std::size_t length = text.size();
    isHolding_ = (length == 6 || length == 8) && NamesHolding(text);
    if (isHolding_ || length < 3 || length > 6) return;
    if (length > 4) text.remove_prefix(1);
    tag = DecimalUnsigned(text.substr(0, kTagWidth));
    if (length > 3) subfield = text[kTagWidth];
}

void CDialogGEGetText::SetSubfieldString() {
    fieldWord_.clear();
    subfieldWord_.clear();
    subfieldString_.clear();
    if (tagText_.empty()) return;
    if (isHolding_) {
        const auto* type = CInfoAboutHoldingsTypeList::FindFromType(holdingsType_);
        if (!type) return;
        fieldWord_ = "Holdings";
        type->GetFieldNameFromID(ElementOf(tagText_), subfieldWord_);
    } else {
        const int option = GetZorbyProfileInt(ZP_DisplayNameOrMARC);
        CMARCFormat::FieldName(tag_, EDO_NameAndCode, fieldWord_);
        CMARCFormat::SubfieldName(tag_, subfield_, static_cast<EDISPLAYOPTIONS>(option),
                                  subfieldWord_);
    }
    subfieldString_ = "Field: " + fieldWord_ + ", Subfield: " + subfieldWord_;
}

void CDialogGEGetText::UpdateSelect(bool show) {
    GetFieldInfo(tagText_, tag_, subfield_);
    state_.keys.SetKey("Tag", tagText_);
    SetSubfieldString();
    if (!show) return;
    Controls().At(kSelect).SetText("&Select...");
    Controls().At(kField).SetText(fieldWord_);
    Controls().At(kSubfield).SetText(subfieldWord_);
}

void CDialogGEGetText::MakeDescription() {
    description_.clear();
    if (tagText_.empty()) return;
    std::string condition;
    if (state_.onlyWhen) state_.MakeLongString(condition, 0, 0, 1);
    description_ = "<<" + subfieldString_ + (state_.onlyWhen ? ", " + condition : "") + ">>";
}

void CDialogGEGetText::OnOK() {
    if (!IsAdvanced()) state_.InitializeOnlyWhenState(tagText_, "");
    MakeDescription();
    EndDialog(kIdOk);
}

void CDialogGEGetText::OnButtonSelectChange() {
    CDlgSelectSubfield dialog(tagText_, "Select a subfield", 1, &Window(), true);
    if (dialog.DoModal() != kIdOk) return;
    const auto picked = [this] {
        return std::tuple(tag_, subfield_, isHolding_ ? ElementOf(tagText_) : EHOLDINGSID{});
    };
    const auto before = picked();
    tagText_ = dialog.GetResult();
    UpdateSelect(true);
    if (picked() != before) DropCondition();
}

void CDialogGEGetText::DropCondition() {
    state_ = COnlyWhenState();
    state_.InitializeOnlyWhenState(tagText_, "");
    state_.keys.SetKey("Tag", tagText_);
    UpdateOnlyWhen(kCondition, &state_);
}

// A condition on another element of holdings brings that element along as its item. What is picked
// stays.
void CDialogGEGetText::OnButtonOnlywhen() {
    CDialogGEOnlyWhen dialog("Get text from subfields that meet these criteria", tagText_,
                             GetState(), 0, 1, 0, 0, 0, &Window());
    if (dialog.DoModal() != kIdOk) return;
    state_.InitializeOnlyWhenState(tagText_, dialog.GetStateText());
    state_.tagText = tagText_;
    state_.ParseTag();
    UpdateOnlyWhen(kCondition, &state_);
}

int CDialogGEGetText::OnCmdMsg(int id, int code, TreeItem item) {
    if (code != CN_Clicked || (id != kSelect && id != kOnlyWhen)) {
        return CDialogAdv::OnCmdMsg(id, code, item);
    }
    if (id == kSelect) {
        OnButtonSelectChange();
    } else {
        OnButtonOnlywhen();
    }
    return 1;
}

const std::string& CDialogGEGetText::GetTagText() const {
    return tagText_;
}

bool CDialogGEGetText::IsHolding() const {
    return isHolding_;
}

const std::string& CDialogGEGetText::GetDescription() const {
    return description_;
}

}  // namespace zorby
