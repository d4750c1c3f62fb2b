#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ControlSet.h>
#include <zorby/format/DisplayOptions.h>
#include <zorby/format/MARCInfo.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zorby {

// The control in which the user picks the value of an indicator: a list of the values that the
// format defines, an edit box for any other value, and a check box for the indicators that the
// program can work out by itself. An indicator's first value is picked with `isFirstIndicator` 1.
//
// Values of the user's own are offered unless ZP_USMARCRulesSelIndConFld is 1, and always for a
// field that the user defined. A value that the list doesn't have is shown as one of them.
class ZORBY_EXPORT CIndicatorSelect : public CommandTarget {
public:
    enum Id : std::int32_t {
        kName = 10100,
        kExplanation = 10101,
        kCombo = 10102,
        kUserValue = 10103,
        kUserTip = 10104,
        kAuto = 10105,
        kAutoTip = 10106,
    };

    struct Settings {
        int templateType = 0;   // how values are shown (EDISPLAYOPTIONS)
        char templateCode = 0;  // nonzero adds "Sears specified in $2" to subject headings
        // The text of the field's $2, or null; it must outlive the control.
        const std::string* subfield2Text = nullptr;
        int autoUpdate = 0;     // the check box at the start
        int showAutoCheck = 0;  // offers the check box
        ControlBox place = {};
    };

    CIndicatorSelect() = default;
    CIndicatorSelect(const CIndicatorSelect&) = delete;
    CIndicatorSelect& operator=(const CIndicatorSelect&) = delete;

    // Creates the controls, but only in the first call, in a window that must outlive this object;
    // then shows the indicator.
    void InitializeIndicatorSelect(WindowPort& parent, unsigned tag, char currentCode,
                                   int isFirstIndicator, const Settings& settings);

    // Returns 1 for the indicators that count the characters to skip in a title, and for the one
    // that says whether a title is traced.
    static int IsIndicatorAutomatic(int tag, int isFirstIndicator);

    // Returns the chosen value, or 0 if there is none. A value of the user's own is one letter,
    // digit or "_".
    char GetCode() const;
    // Gives the text of the selected entry, or an empty text.
    void GetComboString(std::string& text) const;
    int GetAutoUpdateState() const;
    int IsCheckVisible() const;
    int IsDisabledBecauseOfAutoset() const { return IsCheckVisible(); }

    void SetControlState();
    void SetComboState() const;
    void SetUserDefControls() const;
    void LoadCombo();
    void SetFocusToEdit() const;
    void OnCheckAuto();
    void OnSelchangeCombo() const { SetUserDefControls(); }
    void OnSetFocus() const;

    int OnCmdMsg(int id, int code, TreeItem item) override;

private:
    int Which() const { return isFirstIndicator_ ? 1 : 2; }
    EDISPLAYOPTIONS Option() const { return static_cast<EDISPLAYOPTIONS>(settings_.templateType); }
    bool AllowsUserValues() const;
    int EntryToSelect() const;
    bool IsUserValueChosen() const;

    ControlSet controls_;
    unsigned tag_ = 0;
    char currentCode_ = 0;
    int isFirstIndicator_ = 1;
    Settings settings_;
    std::unique_ptr<CMARCInfo> values_;
};

}  // namespace zorby
