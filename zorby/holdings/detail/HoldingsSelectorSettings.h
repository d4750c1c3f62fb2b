#pragma once

#include <zorby/ini/KeysNValues.h>

#include <string>
#include <string_view>

namespace zorby {

// The keys of settings that only some systems need.
inline constexpr const char* kDynixIndicators = "DynixIndicators";
inline constexpr const char* kLwlpCallTag = "LWLPCallTag";
inline constexpr const char* kLwlpSubTags = "LWLPSubTags";
inline constexpr const char* kUnisonNextAccNo = "FollettUnisonNextAccNumber";
inline constexpr const char* kUnisonDCNLocation = "FollettUnisonLocOfMasterCallNumber";
inline constexpr const char* kMandarinSubfields = "MandarinEZTransferHoldingsSubfields";

// The holdings settings of the user's profile, as they were when the object was made. A value that
// isn't stored is an empty text.
class HoldingsSettings {
public:
    HoldingsSettings();

    bool IsEasy() const;
    std::string Get(std::string_view key) const;
    // Returns a value from the text with settings that only some systems need.
    std::string GetExtra(std::string_view key) const;
    // Returns the same, or a default if the text is empty.
    std::string GetExtraOr(std::string_view key, std::string_view defaultValue) const;
    bool HasExtra() const;

    // Set a value and write all settings to the profile.
    void Set(std::string_view key, std::string_view value);
    void SetExtra(std::string_view key, std::string_view value);

private:
    CKeysNValues Extra() const;

    CKeysNValues keys_;
};

}  // namespace zorby
