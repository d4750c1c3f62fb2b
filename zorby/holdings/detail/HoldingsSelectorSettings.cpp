#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/settings/Profile.h>

#include <algorithm>

namespace zorby {
namespace {

std::string Value(const CKeysNValues& keys, std::string_view key) {
    std::string value;
    keys.GetKey(key, value);
    return value;
}

std::string TextOfProfile() {
    std::string text;
    GetZorbyProfileString(ZP_NewHoldings, text);
    return text;
}

}  // namespace

std::string DynixNormalForm(std::string_view indicators) {
    std::string normal(indicators);
    normal.resize(std::max<std::size_t>(normal.size(), 2), '_');
    std::ranges::replace(normal, ' ', '_');
    return normal;
}

ExtraSettings::ExtraSettings(std::string_view text) {
    keys_.SetSeperator("|");
    keys_.Set(text, false);
}

std::string ExtraSettings::Get(std::string_view key) const {
    return Value(keys_, key);
}

std::string ExtraSettings::GetOr(std::string_view key, std::string_view defaultValue) const {
    const std::string value = Get(key);
    return value.empty() ? std::string(defaultValue) : value;
}

std::string ExtraSettings::UnisonDCNLocation() const {
    return keys_.IsEmpty() ? "900a" : Get(kUnisonDCNLocation);
}

std::string ExtraSettings::CustomCallNumber() const {
    return GetOr(kCustomCallNumber, HoldingsTypeRow().callNumberPlace);
}

std::string ExtraSettings::CustomBarCode() const {
    return GetOr(kCustomBarCode, HoldingsTypeRow().barCodePlace);
}

HoldingsSettings::HoldingsSettings() : HoldingsSettings(TextOfProfile()) {}

HoldingsSettings::HoldingsSettings(std::string_view text) {
    keys_.Set(text, true);
}

std::string HoldingsSettings::Get(std::string_view key) const {
    return Value(keys_, key);
}

void HoldingsSettings::Save() const {
    WriteZorbyProfileString(ZP_NewHoldings, Text());
}

}  // namespace zorby
