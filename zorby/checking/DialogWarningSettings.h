#pragma once

#include <zorby/Export.h>
#include <zorby/platform/RadioDialogPort.h>
#include <zorby/settings/ProfileKeys.h>

#include <array>
#include <cstdint>
#include <span>

namespace zorby {

// Who decides about the findings: fixed to the least, the least of the Texas Library Connection
// with the rest free, or all free. Any other number counts as custom.
enum WarningPolicy : std::int32_t { WP_Basic = 0, WP_TLC = 1, WP_Custom = 2 };

// One radio group of the dialog. Values are 0 for an export error, 1 for a warning, 2 to ignore.
struct WarningGroupRow {
    const char* heading;
    const char* label;
    std::int32_t key;  // ProfileKey that the value belongs to, or -1: always an export error
    int basic;
    int tlc;
    int custom;
    bool isFixedByTLC;
};

inline constexpr int kWarningGroups = 19;

// All groups in the order of the dialog.
ZORBY_EXPORT std::span<const WarningGroupRow, kWarningGroups> WarningGroups();

// Whether a policy leaves the option of a group, 0 to 2, for the user to choose.
ZORBY_EXPORT bool IsWarningOptionOpen(int policy, const WarningGroupRow& group, int option);

// The dialog on error checking. It reads and writes no settings: the host fills the values, and
// stores them once the dialog is confirmed.
class ZORBY_EXPORT CDialogWarningSettings {
public:
    // The results of DoModal.
    enum Result : std::int32_t { kConfirmed = 1, kCancelled = 2 };

    // All values -1, which is none, and the policy basic.
    CDialogWarningSettings();

    void SetBasicDefaults();
    void SetTLCDefaults();
    void SetCustomDefaults();
    // Which policy the dialog is for. The values stay.
    void SetBasicTLCCustom(int policy) { policy_ = policy; }
    int GetBasicTLCCustom() const { return policy_; }

    // Groups count from 0. Outside of them, reading gives -1 and setting does nothing.
    int GetValue(int group) const;
    void SetValue(int group, int value);

    // Asks through the RadioDialogPort in force. The values change only if it is confirmed.
    int DoModal();

private:
    void SetColumn(int WarningGroupRow::*column);
    RadioDialog OnInitDialog() const;
    void OnOK(const RadioDialog& dialog);

    std::array<int, kWarningGroups> values_;
    int policy_ = WP_Basic;
};

}  // namespace zorby
