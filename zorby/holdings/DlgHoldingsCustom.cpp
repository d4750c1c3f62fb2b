#include <zorby/holdings/DlgHoldingsCustom.h>
#include <zorby/holdings/detail/CustomHoldingsTexts.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>

namespace zorby {

namespace {

using Dialog = CDlgHoldingsCustom;

constexpr ControlRow kCustomRows[] = {
    {ControlKind::kLabel, 1261, "Holdings fields && &subfields:", {10, 13, 200, 16}},
    {ControlKind::kText, Dialog::kAllFields, {}, {215, 10, 200, 22}},
    {ControlKind::kLabel, 1262, "&Bar code subfield:", {10, 43, 200, 16}},
    {ControlKind::kText, Dialog::kBarCode, {}, {215, 40, 80, 22}},
    {ControlKind::kLabel, 1263, "Call &number subfields:", {10, 73, 200, 16}},
    {ControlKind::kText, Dialog::kCallNumber, {}, {215, 70, 200, 22}},
};

}  // namespace

CDlgHoldingsCustom::CDlgHoldingsCustom(std::string& extra, WindowPort* parent)
    : ModalDialog(parent), extra_(extra) {}

void CDlgHoldingsCustom::OnInitDialog() {
    Window().SetTitle("Custom Holdings Settings");
    Controls().Add(kCustomRows);
    const ExtraSettings settings(extra_);
    Controls().Text(kAllFields).SetText(settings.Get(kCustomAllFAndS));
    Controls().Text(kBarCode).SetText(settings.CustomBarCode());
    Controls().Text(kCallNumber).SetText(settings.CustomCallNumber());
    AddOkAndCancel(247, 106);
}

bool CDlgHoldingsCustom::Accepts(int id, std::string_view message) const {
    if (message.empty()) return true;
    CurrentMessagePort().ShowMessage(message, CGeneral::GetApplicationName(),
                                     MessageIcon::kWarning);
    Controls().At(id).SetFocus();
    return false;
}

void CDlgHoldingsCustom::OnOK() {
    std::string allFields = Controls().Text(kAllFields).GetText();
    std::string barCode = Controls().Text(kBarCode).GetText();
    std::string callNumber = Controls().Text(kCallNumber).GetText();
    if (!Accepts(kAllFields, FaultOfAllFields(allFields))) return;
    if (!Accepts(kBarCode, FaultOfBarCode(barCode))) return;
    if (!Accepts(kCallNumber, FaultOfCallNumber(callNumber))) return;
    ExtraSettings settings(extra_);
    settings.Set(kCustomAllFAndS, allFields);
    settings.Set(kCustomBarCode, barCode);
    settings.Set(kCustomCallNumber, callNumber);
    extra_ = settings.Text();
    EndDialog(kIdOk);
}

}  // namespace zorby
