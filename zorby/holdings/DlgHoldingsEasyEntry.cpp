#include <zorby/holdings/DlgHoldingsEasyEntry.h>
#include <zorby/holdings/detail/HoldingsGroups.h>
#include <zorby/holdings/detail/TypeNameList.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

namespace zorby {

namespace {

constexpr ControlRow kEasyEntryRows[] = {
    {ControlKind::kLabel, 1250, "Holdings &type:", {10, 12, 90, 16}},
    {ControlKind::kList, CDlgHoldingsEasyEntry::kTypes, {}, {105, 10, 220, 22}},
    {ControlKind::kButton, CDlgHoldingsEasyEntry::kChange, "C&hange...", {335, 9, 80, 24}},
};

}  // namespace

CDlgHoldingsEasyEntry::CDlgHoldingsEasyEntry(std::string& type, std::string& nextBarCode,
                                             std::string& extra, WindowPort* parent)
    : ModalDialog(parent),
      type_(type),
      nextBarCode_(nextBarCode),
      extra_(extra),
      newBarCode_(nextBarCode),
      newExtra_(extra) {}

void CDlgHoldingsEasyEntry::OnInitDialog() {
    Window().SetTitle("Easy Holdings Entry");
    Controls().Add(kEasyEntryRows);
    FillTypeNames(Controls().List(kTypes));
    SelectTypeName(Controls().List(kTypes), type_);
    AddOkAndCancel(247, 46);
}

int CDlgHoldingsEasyEntry::OnCmdMsg(int id, int code, TreeItem item) {
    if (id != kChange || code != CN_Clicked) return ModalDialog::OnCmdMsg(id, code, item);
    if (!ChosenType().empty()) RunSettings();
    return 1;
}

std::string CDlgHoldingsEasyEntry::ChosenType() const {
    return SelectedTypeName(Controls().List(kTypes));
}

bool CDlgHoldingsEasyEntry::RunSettings() {
    return RunGroupDialog(ChosenType(), newBarCode_, newExtra_, &Window());
}

void CDlgHoldingsEasyEntry::OnOK() {
    const std::string chosen = ChosenType();
    if (chosen.empty()) {
        CurrentMessagePort().ShowMessage(
            "You must choose a holdings type or hit the Cancel button.",
            CGeneral::GetApplicationName(), MessageIcon::kWarning);
        return;
    }
    if (IsMandarinEZTransfer(chosen) && !RunSettings()) return;
    type_ = chosen;
    nextBarCode_ = newBarCode_;
    extra_ = newExtra_;
    EndDialog(kIdOk);
}

}  // namespace zorby
