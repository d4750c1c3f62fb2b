#pragma once

#include <zorby/Export.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zorby {

// One INI file held in memory: sections of keys, each key with a text as its value.
//
// Section names and keys are compared byte for byte, so case matters. Nothing is ever written to a
// file, and no operation fails.
class ZORBY_EXPORT CINIProfile {
public:
    // Empties the profile and reads the file through the ProfileFilePort in force. If the file
    // can't be read, the profile stays empty.
    void Initialize(std::string_view path);

    // Gives the value, or `defaultValue` if the section or the key is absent.
    void GetPrivateProfileValue(std::string_view section, std::string_view key,
                                std::string_view defaultValue, std::string& value) const;

    // Gives the value as a decimal number: its leading digits, or 0 if there are none. Gives
    // `defaultValue` if the section or the key is absent.
    void GetPrivateProfileValue(std::string_view section, std::string_view key, int defaultValue,
                                int& value) const;

    // Sets the value in memory. An absent section or key is added.
    void SetPrivateProfileValue(std::string_view section, std::string_view key,
                                std::string_view value);
    void SetPrivateProfileValue(std::string_view section, std::string_view key, int value);

private:
    using Section = std::map<std::string, std::string, std::less<>>;

    void Empty();
    Section& SectionNamed(std::string_view name);
    const std::string* Find(std::string_view section, std::string_view key) const;

    std::map<std::string, Section, std::less<>> sections_;
};

}  // namespace zorby
