#pragma once

#include <quillory/queries/PlaceSet.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/Font.h>

#include <string>

namespace quillory {

// The farthest that a setting moves what is printed.
inline constexpr double kMostInches = 20;

// The text of a key of the profile in force, in UTF-8.
std::string ProfileText(int id);

// The values of a profile key that packs several. One that the user's text lacks is taken from the
// default of the key.
class PackedSetting {
public:
    // `name` is that of the key, for messages. Nothing for a separator is that of the library.
    PackedSetting(int id, std::string name, std::string_view separator = {});

    std::string Where(const std::string& key) const { return name_ + ": " + key; }
    std::string Text(const std::string& key) const;
    // These throw UsageError for a text that is none of the kind.
    double Number(const std::string& key, double lowest, double highest) const;
    int WholeNumber(const std::string& key, int lowest, int highest) const;
    zorby::CFont Font(const std::string& key) const;

private:
    std::string name_;
    zorby::CKeysNValues values_;
    zorby::CKeysNValues defaults_;
};

// A font as the profile writes them: "Courier,10,400,0", face, size in points, weight and 1 for
// italic. Throws UsageError, whose text begins with `where`.
zorby::CFont ParseFont(const std::string& where, const std::string& text);
// A number of a profile key between two others. Throws UsageError.
double ParseNumber(const std::string& where, const std::string& text, double lowest,
                   double highest);
int ParseWholeNumber(const std::string& where, const std::string& text, int lowest, int highest);
// The places of a list such as "\020a\022a\" or "020a, 022a"; none of an empty one. Throws
// UsageError.
PlaceSet ParsePlaceList(const std::string& where, std::string text);

// Throws UsageError: what was found, and what may be there.
[[noreturn]] void RefuseSetting(const std::string& where, const std::string& found,
                                const std::string& allowed);

}  // namespace quillory
