#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A setting with its value, in UTF-8.
struct SettingRow {
    std::optional<int> id;  // of the profile key; none for others
    std::string name;       // as a person names it to the program
    std::string value;
};

// The keys of the profile, which LoadSettings has put in force. A key is named by its number, its
// name, or its name without "ZP_". These throw UsageError for a key that is not there or a value
// that it can't have, and FileError.
std::vector<SettingRow> ListSettings();
std::string ReadSetting(const std::string& name);
void ChangeSetting(const std::string& name, const std::string& value);

// The code by which the user's library stands in field 040 of the records that it makes, in UTF-8;
// empty if it has not been set. ListSettings and the others name it "LibraryCode".
std::string LibraryCode();

// The settings of holdings by their own names; the profile keeps them in one text. The dictionaries
// are in force, too.
std::vector<SettingRow> ListHoldingsSettings();
// "LibraryCode" for "ZP_LibraryCode", as a name may be given, too.
std::string_view ShortSettingName(std::string_view name);

std::string ReadHoldingsSetting(const std::string& name);
void ChangeHoldingsSetting(const std::string& name, const std::string& value);

// The bar code that the next copy gets, as the user's file has it now, so that no other program
// gives it, too: the file has the one after it from then on. Empty if the settings have none.
// Throws FileError.
std::string TakeNextBarCode();

}  // namespace quillory
