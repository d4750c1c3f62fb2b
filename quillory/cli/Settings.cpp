#include <quillory/cli/Commands.h>
#include <quillory/cli/Library.h>
#include <quillory/exchange/Input.h>
#include <quillory/exchange/QmText.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/settings/KeysNValues.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <CLI/CLI.hpp>

#include <array>
#include <cstdio>
#include <memory>

namespace quillory {
namespace {

struct SettingsOptions {
    std::string key;
    std::string value;
    bool hasValue = false;
    bool holdings = false;
};

constexpr std::string_view kHoldingsLead = "holdings.";
constexpr const char* kExtraSettings = "HoldingsExtraSettings";
constexpr const char* kExtraSeparator = "|";

struct HoldingsKey {
    std::string_view name;
    bool isExtra;  // stands in the nested text
};

constexpr std::array<HoldingsKey, 12> kHoldingsKeys{{
    {"EasyOrCustom", false},
    {"HoldingsType", false},
    {"NextBarCode", false},
    {"DynixIndicators", true},
    {"LWLPCallTag", true},
    {"LWLPSubTags", true},
    {"FollettUnisonNextAccNumber", true},
    {"FollettUnisonLocOfMasterCallNumber", true},
    {"MandarinEZTransferHoldingsSubfields", true},
    {"CustomAllFAndS", true},
    {"CustomBarCodeSubfield", true},
    {"CustomCallNumberSubfields", true},
}};

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
        extra_.Set(nested, true);
    }

    std::string Get(const HoldingsKey& key) const {
        std::string value;
        (key.isExtra ? extra_ : outer_).GetKey(key.name, value);
        return value;
    }

    void Set(const HoldingsKey& key, std::string_view value) {
        (key.isExtra ? extra_ : outer_).SetKey(key.name, value);
        if (key.isExtra) outer_.SetKey(kExtraSettings, extra_.Get());
        WriteSetting(zorby::ZP_NewHoldings, outer_.Get());
    }

private:
    zorby::CKeysNValues outer_;
    zorby::CKeysNValues extra_;
};

const HoldingsKey& HoldingsKeyNamed(std::string_view name) {
    for (const HoldingsKey& key : kHoldingsKeys) {
        if (key.name == name) return key;
    }
    throw FileError("there is no holdings setting " + std::string(name));
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
    throw FileError("there is no setting " + name + "; `quillory settings` lists them");
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
    if (!Utf8ToQm(value, qm)) throw FileError("settings can't hold all characters of " + value);
    return qm;
}

void CheckHoldingsValue(const HoldingsKey& key, const std::string& value) {
    if (key.name == "EasyOrCustom" && value != "Easy" && value != "Custom") {
        throw FileError("EasyOrCustom is Easy or Custom");
    }
    if (value.find(kExtraSeparator) != value.npos || value.find('\\') != value.npos) {
        throw FileError("holdings settings can't hold | or a backslash");
    }
    if (key.name == "HoldingsType" &&
        zorby::CInfoAboutHoldingsTypeList::FindFromName(value) == nullptr) {
        throw FileError("there is no holdings type " + value +
                        "; `quillory describe --holdings` lists them");
    }
}

void SetKey(const zorby::ProfileKeyRow& row, const std::string& value) {
    const std::size_t sign = value.starts_with('-') ? 1 : 0;
    if (IsNumberKey(row) &&
        (value.size() == sign || value.find_first_not_of("0123456789", sign) != value.npos)) {
        throw FileError(std::string(row.name) + " is a number, not " + value);
    }
    WriteSetting(row.id, InQmCode(value));
}

Status RunHoldings(const SettingsOptions& options, const std::string& name) {
    if (!LoadDictionaries({})) return kStatusFailed;
    HoldingsSettings settings;
    if (name.empty()) {
        for (const HoldingsKey& key : kHoldingsKeys) {
            std::printf("holdings.%-36s %s\n", std::string(key.name).c_str(),
                        QmToUtf8(settings.Get(key)).c_str());
        }
        return kStatusWell;
    }
    const HoldingsKey& key = HoldingsKeyNamed(name);
    if (options.hasValue) {
        CheckHoldingsValue(key, options.value);
        settings.Set(key, InQmCode(options.value));
    } else {
        std::printf("%s\n", QmToUtf8(settings.Get(key)).c_str());
    }
    return kStatusWell;
}

void ListKeys() {
    for (int id = 0; id < zorby::kProfileKeyTableEnd; ++id) {
        const zorby::ProfileKeyRow* row = zorby::FindProfileKey(id);
        if (row == nullptr) continue;
        std::printf("%3d %-42s %s\n", row->id, row->name, ValueOf(*row).c_str());
    }
}

Status RunSettings(const SettingsOptions& options) {
    LoadSettings();
    if (options.holdings) return RunHoldings(options, {});
    if (options.key.starts_with(kHoldingsLead)) {
        return RunHoldings(options, options.key.substr(kHoldingsLead.size()));
    }
    if (options.key.empty()) {
        ListKeys();
        return kStatusWell;
    }
    const zorby::ProfileKeyRow& row = KeyNamed(options.key);
    if (options.hasValue) {
        SetKey(row, options.value);
    } else {
        std::printf("%s\n", ValueOf(row).c_str());
    }
    return kStatusWell;
}

}  // namespace

void AddSettings(CLI::App& program, Run& run) {
    auto options = std::make_shared<SettingsOptions>();
    CLI::App* command = program.add_subcommand("settings", "List, read and write the settings");
    command->add_option("KEY", options->key,
                        "A key by name or number, or holdings.NAME; none lists all");
    CLI::Option* value = command->add_option("VALUE", options->value, "The value to write");
    command->add_flag("--holdings", options->holdings, "List the holdings settings");
    command->callback([options, value, &run] {
        options->hasValue = value->count() > 0;
        run = [options] { return RunSettings(*options); };
    });
}

}  // namespace quillory
