#include <zorby/checking/DialogWarningSettings.h>
#include <zorby/checking/detail/WarningGroupRows.h>
#include <zorby/text/General.h>

#include <cstddef>

namespace zorby {

namespace {

constexpr int kError = 0;
constexpr int kOptions = 3;
constexpr std::array<const char*, kOptions> kOptionTexts{"export error", "warning", "ignore"};

std::string PolicyName(int policy) {
    if (policy == WP_Basic) return "Basic";
    return policy == WP_TLC ? "TLC" : "Custom";
}

bool IsFixed(const WarningGroupRow& group) {
    return group.key == kNoKey;
}

RadioGroup Shown(const WarningGroupRow& row, int policy, int value) {
    RadioGroup group{row.heading, row.label, {}, value};
    if (IsFixed(row)) {
        group.options = {{"always an export error", true}};
        return group;
    }
    for (int option = 0; option < kOptions; ++option) {
        group.options.push_back({kOptionTexts[static_cast<std::size_t>(option)],
                                 IsWarningOptionOpen(policy, row, option)});
    }
    return group;
}

bool IsGroup(int group) {
    return group >= 0 && group < kWarningGroups;
}

}  // namespace

std::span<const WarningGroupRow, kWarningGroups> WarningGroups() {
    return kWarningGroupRows;
}

bool IsWarningOptionOpen(int policy, const WarningGroupRow& group, int option) {
    if (option < 0 || option >= kOptions) return false;
    if (IsFixed(group)) return option == kError;
    if (policy == WP_Basic) return option == group.basic;
    return policy != WP_TLC || !group.isFixedByTLC || option == group.tlc;
}

CDialogWarningSettings::CDialogWarningSettings() {
    values_.fill(-1);
}

void CDialogWarningSettings::SetColumn(int WarningGroupRow::*column) {
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i] = WarningGroups()[i].*column;
}

void CDialogWarningSettings::SetBasicDefaults() {
    SetColumn(&WarningGroupRow::basic);
}

void CDialogWarningSettings::SetTLCDefaults() {
    SetColumn(&WarningGroupRow::tlc);
}

void CDialogWarningSettings::SetCustomDefaults() {
    SetColumn(&WarningGroupRow::custom);
}

int CDialogWarningSettings::GetValue(int group) const {
    return IsGroup(group) ? values_[static_cast<std::size_t>(group)] : -1;
}

void CDialogWarningSettings::SetValue(int group, int value) {
    if (IsGroup(group)) values_[static_cast<std::size_t>(group)] = value;
}

int CDialogWarningSettings::DoModal() {
    RadioDialog dialog = OnInitDialog();
    if (!CurrentRadioDialogPort().Ask(dialog)) return kCancelled;
    OnOK(dialog);
    return kConfirmed;
}

RadioDialog CDialogWarningSettings::OnInitDialog() const {
    constexpr const char* kTitle = "Active Error Checking Settings";
    RadioDialog dialog{kTitle, std::string(kTitle) + ": " + PolicyName(policy_), {}, {}};
    if (policy_ == WP_TLC) dialog.explanation = CGeneral::TLCExplanation();
    for (int i = 0; i < kWarningGroups; ++i) {
        dialog.groups.push_back(
            Shown(WarningGroups()[static_cast<std::size_t>(i)], policy_, GetValue(i)));
    }
    return dialog;
}

void CDialogWarningSettings::OnOK(const RadioDialog& dialog) {
    int group = 0;
    for (const RadioGroup& shown : dialog.groups) SetValue(group++, shown.chosen);
}

void CDialogWarningSettings::SetBasicTLCCustom(int policy) {
    policy_ = policy;
}

int CDialogWarningSettings::GetBasicTLCCustom() const {
    return policy_;
}

}  // namespace zorby
