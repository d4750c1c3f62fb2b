#include <quillory/checks/Policy.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Settings.h>
#include <quillory/jobs/SettingsLock.h>
#include <quillory/text/NearestNames.h>
#include <quillory/text/QmText.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>

namespace quillory {
namespace {

constexpr const char* kLibraryCode = "LibraryCode";
constexpr std::string_view kHoldingsLead = "holdings.";
constexpr const char* kExtraSettings = "HoldingsExtraSettings";
constexpr const char* kExtraSeparator = "|";

struct HoldingsKey {
    std::string_view name;
    bool isExtra;  // stands in the nested text
};

constexpr HoldingsKey kNextBarCode{"NextBarCode", false};

// Those of all systems, of each system, and of the user's own fields.
std::vector<HoldingsKey> HoldingsKeys() {
    std::vector<HoldingsKey> keys = {
        {"EasyOrCustom", false}, {"HoldingsType", false}, kNextBarCode};
    const auto add = [&keys](const char* name) {
        if (name == nullptr || std::ranges::count(keys, name, &HoldingsKey::name) != 0) return;
        keys.push_back({name, true});
    };
    for (const zorby::HoldingsTypeRow& row : zorby::HoldingsTypeTable()) {
        for (const char* name : row.settings) add(name);
    }
    for (const char* name :
         {"CustomAllFAndS", "CustomBarCodeSubfield", "CustomCallNumberSubfields"}) {
        add(name);
    }
    return keys;
}

// The holdings settings: one text of keys, with another nested in it.
class HoldingsSettings {
public:
    HoldingsSettings() {
        std::string text;
        std::string nested;
        zorby::GetZorbyProfileString(zorby::ZP_NewHoldings, text);
        outer_.Set(text, true);
        outer_.GetKey(kExtraSettings, nested);
        extra_.SetSeperator(kExtraSeparator);
        extra_.Set(nested, false);
    }

    std::string Get(const HoldingsKey& key) const {
        std::string value;
        (key.isExtra ? extra_ : outer_).GetKey(key.name, value);
        return value;
    }

    void Set(const HoldingsKey& key, std::string_view value) {
        (key.isExtra ? extra_ : outer_).SetKey(key.name, value);
        if (key.isExtra) outer_.SetKey(kExtraSettings, extra_.Get());
        CheckReadsBack(key, value);
        WriteSetting(zorby::ZP_NewHoldings, outer_.Get());
    }

private:
    // A key that a strange file has, and that begins with a backslash, leaves it to the value
    // before it.
    void CheckReadsBack(const HoldingsKey& key, std::string_view value) const {
        const std::string wanted = key.isExtra ? extra_.Get() : std::string(value);
        std::string written;
        zorby::CKeysNValues again;
        again.Set(outer_.Get(), true);
        again.GetKey(key.isExtra ? kExtraSettings : key.name, written);
        if (written == wanted) return;
        throw FileError(zorby::GetZorbyProfilePath() +
                        ": the holdings settings (ZP_NewHoldings) have a key that begins with a "
                        "backslash after " +
                        std::string(key.name) + ", which can't be changed before that key is gone");
    }

    zorby::CKeysNValues outer_;
    zorby::CKeysNValues extra_;
};

HoldingsKey HoldingsKeyNamed(std::string_view name) {
    if (name.starts_with(kHoldingsLead)) name.remove_prefix(kHoldingsLead.size());
    for (const HoldingsKey& key : HoldingsKeys()) {
        if (key.name == name) return key;
    }
    std::vector<std::string> names;
    for (const HoldingsKey& key : HoldingsKeys()) names.emplace_back(key.name);
    const std::string wanted(name);
    throw UsageError({FaultCode::kNoHoldingsSetting, {}, wanted, PerhapsMeant(wanted, names)});
}

// By number, by name, or by name without "ZP_".
const zorby::ProfileKeyRow& KeyNamed(const std::string& name) {
    const bool isNumber = !name.empty() && name.find_first_not_of("0123456789") == name.npos;
    for (const zorby::ProfileKeyRow& row : zorby::ProfileKeyTable()) {
        const std::string rowName = row.name;
        if (rowName.empty()) continue;
        if (isNumber ? std::to_string(row.id) == name
                     : rowName == name || rowName == "ZP_" + name) {
            return row;
        }
    }
    std::vector<std::string> names{kLibraryCode};
    for (const zorby::ProfileKeyRow& row : zorby::ProfileKeyTable()) {
        if (*row.name != 0) names.emplace_back(ShortSettingName(row.name));
    }
    throw UsageError({FaultCode::kNoSetting,
                      {},
                      name,
                      PerhapsMeant(std::string(ShortSettingName(name)), names)});
}

bool IsNumberKey(const zorby::ProfileKeyRow& row) {
    return row.defaultText == nullptr;
}

std::string ValueOf(const zorby::ProfileKeyRow& row) {
    if (IsNumberKey(row)) return std::to_string(zorby::GetZorbyProfileInt(row.id));
    std::string text;
    zorby::GetZorbyProfileString(row.id, text);
    const bool isDefault = text.empty() && zorby::GetZorbyProfileInt(row.id) == row.defaultNumber;
    return isDefault && row.defaultNumber != 0 ? std::to_string(row.defaultNumber) : QmToUtf8(text);
}

std::string InQmCode(const std::string& value) {
    std::string qm;
    if (!Utf8ToQm(value, qm)) throw UsageError({FaultCode::kNotSettingText, {}, value});
    return qm;
}

void CheckHoldingsValue(const HoldingsKey& key, const std::string& value) {
    if (key.name == "EasyOrCustom" && value != "Easy" && value != "Custom") {
        throw UsageError(std::string(key.name),
                         {FaultCode::kNotASettingValue, {}, value, "Easy or Custom"});
    }
    if (value.find(kExtraSeparator) != value.npos || value.find('\\') != value.npos) {
        throw UsageError(std::string(key.name), {FaultCode::kNotHoldingsSettingText});
    }
    if (key.name == "HoldingsType" &&
        zorby::CInfoAboutHoldingsTypeList::FindFromName(value) == nullptr) {
        throw UsageError({FaultCode::kNoHoldingsType, {}, value, MeantHoldingsType(value)});
    }
}

PolicyKind PolicyOf(const std::string& value) {
    if (value == "0") return kPolicyBasic;
    if (value == "1") return kPolicyTLC;
    if (value == "2") return kPolicyCustom;
    throw UsageError(zorby::FindProfileKey(zorby::ZP_RadioBasic_TLC_Custom)->name,
                     {FaultCode::kNotASettingValue, {}, value, "0, 1 or 2"});
}

// What findings count as goes by keys of their own: whoever chooses a policy sets these to it.
void SetPolicy(const std::string& value) {
    for (const auto& [key, weight] : KeysSetBy(PolicyOf(value))) {
        WriteSetting(key, std::to_string(weight));
    }
    WriteSetting(zorby::ZP_RadioBasic_TLC_Custom, value);
}

struct NumberRange {
    int least;
    int most;
    std::string words;
};

// What a finding counts as, and how names and codes stand together, are of few kinds.
NumberRange RangeOf(const zorby::ProfileKeyRow& row) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    if (std::string_view(row.name).starts_with("ZP_RC_")) return {0, 2, "0, 1 or 2"};
    if (row.id == zorby::ZP_DisplayNameOrMARC) return {0, 3, "0, 1, 2 or 3"};
    return {kLeast, kMost, "from " + std::to_string(kLeast) + " to " + std::to_string(kMost)};
}

void CheckNumber(const zorby::ProfileKeyRow& row, const std::string& value) {
    int number = 0;
    const char* end = value.data() + value.size();
    const auto read = std::from_chars(value.data(), end, number);
    const bool isNumber = read.ec != std::errc::invalid_argument && read.ptr == end;
    const NumberRange range = RangeOf(row);
    if (isNumber && read.ec == std::errc() && range.least <= number && number <= range.most) return;
    throw UsageError(
        row.name, {FaultCode::kNotASettingValue, {}, value, isNumber ? range.words : "a number"});
}

void Set(const zorby::ProfileKeyRow& row, const std::string& value) {
    if (row.id == zorby::ZP_RadioBasic_TLC_Custom) return SetPolicy(value);
    if (IsNumberKey(row)) CheckNumber(row, value);
    WriteSetting(row.id, InQmCode(value));
}

}  // namespace

std::vector<SettingRow> ListSettings() {
    std::vector<SettingRow> rows;
    for (int id = 0; id < zorby::kProfileKeyTableEnd; ++id) {
        const zorby::ProfileKeyRow* row = zorby::FindProfileKey(id);
        if (row != nullptr) rows.push_back({row->id, row->name, ValueOf(*row)});
    }
    rows.push_back({std::nullopt, kLibraryCode, LibraryCode()});
    return rows;
}

std::string LibraryCode() {
    return QmToUtf8(ReadOwnSetting(kLibraryCode));
}

std::string ReadSetting(const std::string& name) {
    if (name == kLibraryCode) return LibraryCode();
    return ValueOf(KeyNamed(name));
}

void ChangeSetting(const std::string& name, const std::string& value) {
    const SettingsLock lock;
    if (name == kLibraryCode) {
        WriteOwnSetting(kLibraryCode, InQmCode(value));
    } else {
        Set(KeyNamed(name), value);
    }
}

std::vector<SettingRow> ListHoldingsSettings() {
    const HoldingsSettings settings;
    std::vector<SettingRow> rows;
    for (const HoldingsKey& key : HoldingsKeys()) {
        rows.push_back({std::nullopt, std::string(kHoldingsLead).append(key.name),
                        QmToUtf8(settings.Get(key))});
    }
    return rows;
}

std::string_view ShortSettingName(std::string_view name) {
    constexpr std::string_view kLead = "ZP_";
    if (name.starts_with(kLead)) name.remove_prefix(kLead.size());
    return name;
}

std::string ReadHoldingsSetting(const std::string& name) {
    return QmToUtf8(HoldingsSettings().Get(HoldingsKeyNamed(name)));
}

std::string TakeNextBarCode() {
    const SettingsLock lock;
    std::string barCode;
    std::string next;
    {
        const SettingsKeeper inForce;  // stay so, whatever others have written
        LoadSettings();
        HoldingsSettings settings;
        barCode = settings.Get(kNextBarCode);
        if (barCode.empty()) return {};
        next = barCode;
        zorby::CGeneral::IncrementNumber(next);
        settings.Set(kNextBarCode, next);
    }
    zorby::MemoryProfileFiles memory;
    const zorby::ProfileFilesInForce inMemory(memory);
    zorby::CHoldingsSelector::SetNextBarCode(next);
    return barCode;
}

void ChangeHoldingsSetting(const std::string& name, const std::string& value) {
    const HoldingsKey key = HoldingsKeyNamed(name);
    CheckHoldingsValue(key, value);
    const std::string qm = InQmCode(value);
    const SettingsLock lock;
    LoadSettings();
    HoldingsSettings().Set(key, qm);
}

}  // namespace quillory
