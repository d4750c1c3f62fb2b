#include <quillory/cli/Commands.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Settings.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace quillory {
namespace {

struct SettingsOptions {
    std::string key;
    std::optional<std::string> value;  // to write
    bool holdings = false;
};

constexpr std::string_view kHoldingsLead = "holdings.";

std::string Padded(std::string text, std::size_t columns) {
    if (text.size() < columns) text.resize(columns, ' ');
    return text;
}

void Print(const std::string& text) {
    Output output("-");
    output.Write(text);
    output.Finish();
}

Status RunHoldings(const SettingsOptions& options, const std::string& name) {
    if (!LoadDictionaries({})) return kStatusFailed;
    std::string text;
    if (name.empty()) {
        for (const SettingRow& row : ListHoldingsSettings()) {
            text += "holdings." + Padded(row.name, 36) + " " + row.value + "\n";
        }
    } else if (options.value) {
        ChangeHoldingsSetting(name, *options.value);
    } else {
        text = ReadHoldingsSetting(name) + "\n";
    }
    Print(text);
    return kStatusWell;
}

std::string ListText() {
    std::string text;
    for (const SettingRow& row : ListSettings()) {
        const std::string id = std::to_string(row.id);
        text += std::string(3 - std::min<std::size_t>(id.size(), 3), ' ') + id + " " +
                Padded(row.name, 42) + " " + row.value + "\n";
    }
    return text;
}

Status RunSettings(const SettingsOptions& options) {
    LoadSettings();
    if (options.holdings) return RunHoldings(options, {});
    if (options.key.starts_with(kHoldingsLead)) {
        return RunHoldings(options, options.key.substr(kHoldingsLead.size()));
    }
    if (options.key.empty()) {
        Print(ListText());
    } else if (options.value) {
        ChangeSetting(options.key, *options.value);
    } else {
        Print(ReadSetting(options.key) + "\n");
    }
    return kStatusWell;
}

}  // namespace

void DeclareSettings(Arguments& command) {
    SettingsOptions& options = command.Runs(RunSettings);
    command.Positional("KEY", options.key,
                       "A key by name or number, or holdings.NAME; none lists all");
    command.Positional("VALUE", options.value, "The value to write");
    command.Flag("--holdings", options.holdings, "List the holdings settings");
}

}  // namespace quillory
