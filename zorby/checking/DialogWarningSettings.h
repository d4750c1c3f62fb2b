#pragma once

#include <zorby/Export.h>
#include <zorby/platform/RadioDialogPort.h>
#include <zorby/settings/ProfileKeys.h>

#include <array>
#include <cstdint>
#include <span>

namespace zorby {

// How much the user may decide about the findings: nothing, everything but what the Texas Library
// Connection requires, or everything. Any other number counts as custom.
enum WarningPolicy : std::int32_t { WP_Basic = 0, WP_TLC = 1, WP_Custom = 2 };

// One group of radio buttons in the dialog. A value is 0 for an export error, 1 for a warning, and
// 2 for a finding that is ignored.
struct WarningGroupRow {
    const char* heading;
    const char* label;
    std::int32_t key;  // ProfileKey of the value, or -1 for what is always an export error
    int basic;
    int tlc;
    int custom;
    bool isFixedByTLC;
};

inline constexpr int kWarningGroups = 19;

// All groups in the order of the dialog.
ZORBY_EXPORT std::span<const WarningGroupRow, kWarningGroups> WarningGroups();

// Returns whether a policy leaves an option of a group (0 to 2) for the user to choose.
ZORBY_EXPORT bool IsWarningOptionOpen(int policy, const WarningGroupRow& group, int option);

// The dialog about error checking. It neither reads nor writes settings: the host fills in the
// values, and stores them after the user has confirmed.
class ZORBY_EXPORT CDialogWarningSettings {
public:
    // The results of DoModal.
    enum Result : std::int32_t { kConfirmed = 1, kCancelled = 2 };

    // All values are -1, which is no choice, and the policy is basic.
    CDialogWarningSettings();

    void SetBasicDefaults();
    void SetTLCDefaults();
    void SetCustomDefaults();
    // Sets the policy that the dialog is for. The values stay.
    void SetBasicTLCCustom(int policy);
    int GetBasicTLCCustom() const;

    // Groups are counted from 0. For any other number, reading returns -1 and setting does nothing.
    int GetValue(int group) const;
    void SetValue(int group, int value);

    // Asks through the RadioDialogPort in force and returns a Result. The values change only if the
    // user confirms.
    int DoModal();

private:
    void SetColumn(int WarningGroupRow::*column);
    RadioDialog OnInitDialog() const;
    void OnOK(const RadioDialog& dialog);

    std::array<int, kWarningGroups> values_;
    int policy_ = WP_Basic;
};

}  // namespace zorby
