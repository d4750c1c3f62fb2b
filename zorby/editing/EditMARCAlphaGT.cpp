#include <zorby/editing/EditMARCAlphaGT.h>
#include <zorby/editing/detail/DisplayText.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/selection/DialogGEGetText.h>

#include <utility>

namespace zorby {

namespace {

CKeysNValues PackedKeys() {
    CKeysNValues keys;
    keys.SetSeperator("||");
    return keys;
}

std::string Numbered(const char* key, int number) {
    return key + std::to_string(number);
}

GetTextField FieldOf(std::string_view stateText) {
    GetTextField field;
    field.stateText = stateText;
    CDialogGEGetText::ParseState(stateText, field.tagText, field.isHolding, field.holdingsID,
                                 field.description);
    return field;
}

}  // namespace

void CEditMARCAlphaGT::ReadFields(std::string_view state, std::string& text) {
    CKeysNValues keys = PackedKeys();
    keys.Set(state.substr(0, state.find('\0')), false);
    fields_.Clear();
    std::string condition;
    for (int i = 1; keys.GetKey(Numbered("Condition", i), condition); ++i) {
        GetTextField field = FieldOf(condition);
        const bool hasPlace = keys.GetKey(Numbered("Position", i), field.position) != 0;
        if (hasPlace) fields_.All().push_back(std::move(field));
    }
    keys.GetKey("Text", text);
}

void CEditMARCAlphaGT::Initialize(std::string_view state, bool show, std::string* displayed) {
    std::string text;
    ReadFields(state, text);
    if (!show) plainText_ = text;
    text = fields_.WithDescriptions(std::move(text));
    if (show) CEditMARCAlpha::SetWindowTextA(text);
    if (displayed) *displayed = text;
}

std::string CEditMARCAlphaGT::GetState() {
    CKeysNValues keys = PackedKeys();
    int number = 0;
    for (const GetTextField& field : fields_.All()) {
        ++number;
        const std::string condition =
            field.stateText.empty() ? "Tag=" + field.tagText + "\\\\" : field.stateText;
        keys.SetKey(Numbered("Condition", number), condition);
        keys.SetKey(Numbered("Position", number), field.position);
    }
    InitializeForProcessing(true);
    keys.SetKey("Text", plainText_);
    return keys.Get();
}

void CEditMARCAlphaGT::InitializeForProcessing(bool fromControl) {
    if (fromControl) {
        plainText_ = fields_.WithoutDescriptions(std::string(RealText()));
    }
    for (GetTextField& field : fields_.All()) {
        field.state.InitializeOnlyWhenState(field.tagText, field.stateText);
    }
}

COnlyWhenState* CEditMARCAlphaGT::GetGTOnlyWhenState(const int& index) {
    GetTextField* const field = fields_.At(index);
    return field ? &field->state : nullptr;
}

void CEditMARCAlphaGT::SetGTSubfieldText(const int& index, std::string_view text) {
    if (GetTextField* const field = fields_.At(index)) field->subfieldText = text;
}

void CEditMARCAlphaGT::SetWindowTextA(std::string_view text) {
    fields_.Clear();
    CEditMARCAlpha::SetWindowTextA(text);
}

void CEditMARCAlphaGT::RealTextReplaced(int from, int removed, int added) {
    fields_.TextReplaced(from, removed, added);
}

// The description goes in whole, whatever characters the texts in a condition have: a stored
// position counts all of its bytes.
void CEditMARCAlphaGT::OnGetTextButton() {
    Snap();
    const Selection selection = GetSel();
    const GetTextField* const old = fields_.LastBeginningIn(selection.start, selection.end);
    CDialogGEGetText dialog(old ? old->tagText : "", old ? old->stateText : "", parent_);
    if (dialog.DoModal() != kIdOk || dialog.GetDescription().empty()) return;
    GetTextField field = FieldOf(dialog.GetState());
    field.position = selection.start;
    UndoStateSave();
    BufferMaintEditPaste(field.description);
    Port().ReplaceSelection(DisplayText(field.description));
    fields_.Add(std::move(field));
    BufferMaintCheckChanges();
}

std::string CEditMARCAlphaGT::GetActualText() const {
    return fields_.WithValues(plainText_);
}

const GetTextFields::Fields& CEditMARCAlphaGT::Fields() const {
    return fields_.All();
}

void CEditMARCAlphaGT::SetGetTextButton(ControlPort* button) {
    button_ = button;
}

void CEditMARCAlphaGT::SetDialogParent(WindowPort* parent) {
    parent_ = parent;
}

}  // namespace zorby
