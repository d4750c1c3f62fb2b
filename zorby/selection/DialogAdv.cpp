#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/selection/DialogAdv.h>

namespace zorby {

void CDialogAdv::UpdateOnlyWhen(int label, const COnlyWhenState* state) const {
    if (!state) return;
    std::string sentence;
    state->MakeLongString(sentence, 0, 1, 0);
    Controls().At(label).SetText(sentence);
}

void CDialogAdv::OnButtonAdvanced() {
    SetAdvanced(!isAdvanced_);
}

int CDialogAdv::OnCmdMsg(int id, int code, TreeItem item) {
    if (id != kAdvanced || code != CN_Clicked) return ModalDialog::OnCmdMsg(id, code, item);
    OnButtonAdvanced();
    return 1;
}

void CDialogAdv::AddAdvancedButton(int left, int top) {
    Controls().Add({ControlKind::kButton, kAdvanced, {}, {left, top, 110, 24}});
}

void CDialogAdv::SetAdvanced(bool advanced) {
    isAdvanced_ = advanced;
    Controls().At(kAdvanced).SetText(advanced ? "<< &Advanced" : "&Advanced >>");
    ShowAdvanced(advanced ? 1 : 0);
}

bool CDialogAdv::IsAdvanced() const {
    return isAdvanced_;
}

}  // namespace zorby
