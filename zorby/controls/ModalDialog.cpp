#include <zorby/controls/ModalDialog.h>

#include <memory>

namespace zorby {

int ModalDialog::DoModal() {
    const std::unique_ptr<DialogWindowPort> window = CurrentDialogPort().Open(parent_);
    window_ = window.get();
    controls_ = {};
    controls_.SetWindow(*window);
    OnInitDialog();
    const int result = window->Run(*this);
    controls_ = {};
    window_ = nullptr;
    return result;
}

int ModalDialog::OnCmdMsg(int id, int code, TreeItem) {
    if (code != CN_Clicked || (id != kIdOk && id != kIdCancel)) return 0;
    if (id == kIdOk) {
        OnOK();
    } else {
        OnCancel();
    }
    return 1;
}

void ModalDialog::AddOkAndCancel(int left, int top) {
    constexpr int kWidth = 80;
    constexpr int kHeight = 24;
    constexpr int kGap = 8;
    controls_.Add({ControlKind::kButton, kIdOk, "OK", {left, top, kWidth, kHeight}});
    controls_.Add(
        {ControlKind::kButton, kIdCancel, "Cancel", {left + kWidth + kGap, top, kWidth, kHeight}});
}

}  // namespace zorby
