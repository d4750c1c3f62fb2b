#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ControlSet.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zorby {

class HoldingsSettings;

// How a library keeps its holdings: "Easy", as one of the systems in the holdings dictionary does,
// or "Custom", in fields of the user's choice. Each static operation reads the settings anew, from
// the key ZP_NewHoldings of the user's profile. A place in a record is written as a tag with
// subfield codes, such as "852khim".
//
// An object is the control in which the user chooses. It works on a copy of the settings, which
// reaches the profile through SaveSettings.
class ZORBY_EXPORT CHoldingsSelector : public CommandTarget {
public:
    // Returns the system in force, or null for custom holdings and for a system that the dictionary
    // doesn't know.
    static const CInfoAboutHoldingsType* GetCurrentHoldingsType();
    // Gives HT_CUSTOM where the operation above returns null.
    static void GetCurrentHoldingsType(EHOLDINGSTYPE& type);
    // Returns HT_NONE where GetCurrentHoldingsType returns null.
    static EHOLDINGSTYPE GetCurrentHoldingsTypeID();
    // Returns "Custom" where GetCurrentHoldingsType returns null.
    static std::string GetCurrentHoldingsTypeName();
    // Returns true unless "Easy" was chosen, and always for HT_MANDARIN_EZ.
    static bool CurrentHoldingsTypeIsCustom();

    // The next bar code, and Follett Unison's next accession number. A setter writes to the profile
    // at once.
    static std::string GetNextBarCode();
    static void SetNextBarCode(std::string_view barCode);
    static std::string GetNextAccNo();
    static void SetNextAccNo(std::string_view number);

    // Returns two indicators or more, with "_" for a blank.
    static std::string GetDynixIndicators();
    // Returns the place of the default call number, which is "900a" unless the system's own
    // settings were stored.
    static std::string GetFollettUnisonDCNLocation();
    static std::string GetLWLPCallTagAndSubs();
    // Returns the codes without their tag, which are "khip" unless others were stored.
    static std::string GetMandarinHoldingSubfields();

    // The places of custom holdings: tags with codes, separated by blanks. For HT_MANDARIN_EZ they
    // are in 852. Call number and bar code are in "852khim" and "852p" unless other places were
    // stored; for HT_MANDARIN_EZ they always are.
    static std::string GetCustomHoldingsFieldsAndSubfields();
    static std::string GetCustomCallNumber();
    static std::string GetCustomBarCode();

    // Returns whether the system in force has a field with this tag.
    static bool IsHoldingsField(unsigned tag);
    // Returns whether holdings are custom and one of their fields has this tag.
    static bool IsCustomHoldingTag(unsigned tag);
    // Returns whether the custom fields have this tag with this subfield.
    static bool IsHoldingsFieldForCapitalization(unsigned tag, char subfield);

    // Gives the tags of the holdings in force, and the places of call number and bar code.
    static void GetCurrentHoldingsFields(std::string& fields, std::string& callNumber,
                                         std::string& barCode);
    // Returns the fields that the settings add to the dictionary, for CMARCFormat::AddUserDefined.
    static std::string GetUDFields();

    enum Id : std::int32_t {
        kCustom = 10000,
        kEasy = 10001,
        kTypes = 10002,
        kChange = 10004,
        kGroup = 10005,
        kCurrentHeading = 10006,
        kCurrentSettings = 10007,
    };

    CHoldingsSelector();
    ~CHoldingsSelector() override;
    CHoldingsSelector(const CHoldingsSelector&) = delete;
    CHoldingsSelector& operator=(const CHoldingsSelector&) = delete;

    // Creates the controls in a window, which must outlive this object, and shows the settings of
    // the profile.
    void InitializeYourself(WindowPort& window, const ControlBox& place);
    // Takes other settings. A system that they know by a former name gets its present one.
    void InitializeYourself(std::string_view settings);
    std::string GetSettings() const;
    void SaveSettings() const;
    // Whether the user has chosen "Easy" or "Custom".
    bool HasBeenSet() const;
    // Returns the name of the system for "Easy", else "Custom".
    std::string GetHoldingsType() const;

    // These show a dialog and return 1 if the user confirmed, else 0.
    int EasyEntryHoldingsDialog();
    int CustomSettingsDialog();
    // Describes the settings as they are now, and shows the description.
    void UpdateCurrentSettings();
    const std::string& GetCurrentSettings() const;
    void SetButtonState();
    // Handles what concerns these controls.
    int OnCmdMsg(int id, int code, TreeItem item) override;

private:
    void OnEasy();
    void OnCustom();
    void OnSelchangeTypes();
    void OnChange();

    std::unique_ptr<HoldingsSettings> settings_;
    std::string currentSettings_;
    ControlSet controls_;
    WindowPort* window_ = nullptr;
    bool isBuilding_ = false;
    bool isInEasy_ = false;
    bool isInCustom_ = false;
};

}  // namespace zorby
