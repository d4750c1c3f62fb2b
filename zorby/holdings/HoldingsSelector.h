#pragma once

#include <zorby/Export.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <string>
#include <string_view>

namespace zorby {

// How the library's holdings are kept: "Easy" under a type of the holdings dictionary, or "Custom"
// with fields of the user's own. Each operation reads the settings afresh, the key ZP_NewHoldings
// of the user's profile. Places in a record are texts of a tag and subfield codes, such as
// "852khim".
class ZORBY_EXPORT CHoldingsSelector {
public:
    // The type in force, or null for custom and for a type that the dictionary doesn't know.
    static const CInfoAboutHoldingsType* GetCurrentHoldingsType();
    // HT_CUSTOM where the form above gives null.
    static void GetCurrentHoldingsType(EHOLDINGSTYPE& type);
    // HT_NONE where it gives null.
    static EHOLDINGSTYPE GetCurrentHoldingsTypeID();
    // "Custom" where it gives null.
    static std::string GetCurrentHoldingsTypeName();
    // True unless "Easy" was chosen, and for HT_MANDARIN_EZ.
    static bool CurrentHoldingsTypeIsCustom();

    // The bar code and Follett Unison's accession number to give out next. A setter writes at once.
    static std::string GetNextBarCode();
    static void SetNextBarCode(std::string_view barCode);
    static std::string GetNextAccNo();
    static void SetNextAccNo(std::string_view number);

    // Two indicators or more, blanks as "_".
    static std::string GetDynixIndicators();
    // Where the default call number is: "900a" until settings of the type's own are stored.
    static std::string GetFollettUnisonDCNLocation();
    static std::string GetLWLPCallTagAndSubs();
    // The codes without their tag, "khip" unless others are stored.
    static std::string GetMandarinHoldingSubfields();

    // Where custom holdings are: entries of a tag and codes, divided by blanks. For HT_MANDARIN_EZ
    // they are in 852. Call number and bar code are in "852khim" and "852p" unless other places are
    // stored, and always there for HT_MANDARIN_EZ.
    static std::string GetCustomHoldingsFieldsAndSubfields();
    static std::string GetCustomCallNumber();
    static std::string GetCustomBarCode();

    // True if the type in force has a field of this tag.
    static bool IsHoldingsField(unsigned tag);
    // True if holdings are custom and their fields name the tag.
    static bool IsCustomHoldingTag(unsigned tag);
    // True if the custom fields name the tag with this subfield.
    static bool IsHoldingsFieldForCapitalization(unsigned tag, char subfield);

    // The tags of the holdings in force, and where call number and bar code are.
    static void GetCurrentHoldingsFields(std::string& fields, std::string& callNumber,
                                         std::string& barCode);
    // The fields that the settings add to the dictionary, for CMARCFormat::AddUserDefined.
    static std::string GetUDFields();
};

}  // namespace zorby
