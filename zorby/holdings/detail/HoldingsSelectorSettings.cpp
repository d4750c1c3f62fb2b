#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/settings/Profile.h>

namespace zorby {
namespace {

constexpr std::string_view kExtraSettings = "HoldingsExtraSettings";

std::string Value(const CKeysNValues& keys, std::string_view key) {
    std::string value;
    keys.GetKey(key, value);
    return value;
}

}  // namespace

HoldingsSettings::HoldingsSettings() {
    std::string text;
    GetZorbyProfileString(ZP_NewHoldings, text);
    keys_.Set(text, true);
}

bool HoldingsSettings::IsEasy() const {
    return Get("EasyOrCustom") == "Easy";
}

std::string HoldingsSettings::Get(std::string_view key) const {
    return Value(keys_, key);
}

std::string HoldingsSettings::GetExtra(std::string_view key) const {
    return Value(Extra(), key);
}

std::string HoldingsSettings::GetExtraOr(std::string_view key,
                                         std::string_view defaultValue) const {
    const std::string value = GetExtra(key);
    return value.empty() ? std::string(defaultValue) : value;
}

bool HoldingsSettings::HasExtra() const {
    return !Extra().IsEmpty();
}

void HoldingsSettings::Set(std::string_view key, std::string_view value) {
    keys_.SetKey(key, value);
    WriteZorbyProfileString(ZP_NewHoldings, keys_.Get());
}

void HoldingsSettings::SetExtra(std::string_view key, std::string_view value) {
    CKeysNValues extra = Extra();
    extra.SetKey(key, value);
    Set(kExtraSettings, extra.Get());
}

CKeysNValues HoldingsSettings::Extra() const {
    CKeysNValues extra;
    extra.SetSeperator("|");
    extra.Set(Get(kExtraSettings), false);
    return extra;
}

}  // namespace zorby
