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
inline constexpr const char* kCustomAllFAndS = "CustomAllFAndS";
inline constexpr const char* kCustomBarCode = "CustomBarCodeSubfield";
inline constexpr const char* kCustomCallNumber = "CustomCallNumberSubfields";

// Returns indicators as they are kept: two characters or more, with "_" for a blank.
std::string DynixNormalForm(std::string_view indicators);

// The settings that only some systems need, from the text of that key. A value that isn't stored is
// an empty text, or its default where it has an operation of its own.
class ExtraSettings {
public:
    explicit ExtraSettings(std::string_view text);

    std::string Get(std::string_view key) const;
    std::string DynixIndicators() const { return DynixNormalForm(Get(kDynixIndicators)); }
    std::string UnisonDCNLocation() const;
    std::string MandarinSubfields() const { return GetOr(kMandarinSubfields, "khip"); }
    std::string CustomCallNumber() const;
    std::string CustomBarCode() const;

    void Set(std::string_view key, std::string_view value) { keys_.SetKey(key, value); }
    std::string Text() const { return keys_.Get(); }

private:
    std::string GetOr(std::string_view key, std::string_view defaultValue) const;

    CKeysNValues keys_;
};

// The holdings settings. A value that isn't stored is an empty text.
class HoldingsSettings {
public:
    // Those of the user's profile, as they are now.
    HoldingsSettings();
    explicit HoldingsSettings(std::string_view text);

    bool IsEasy() const { return Get("EasyOrCustom") == "Easy"; }
    bool IsCustom() const { return Get("EasyOrCustom") == "Custom"; }
    std::string Get(std::string_view key) const;
    ExtraSettings Extra() const { return ExtraSettings(Get(kExtra)); }

    void Set(std::string_view key, std::string_view value) { keys_.SetKey(key, value); }
    void SetExtra(std::string_view text) { Set(kExtra, text); }
    void Remove(std::string_view key) { keys_.RemoveKey(key); }
    std::string Text() const { return keys_.Get(); }
    // Writes all settings to the profile.
    void Save() const;

private:
    static constexpr std::string_view kExtra = "HoldingsExtraSettings";

    CKeysNValues keys_;
};

}  // namespace zorby
