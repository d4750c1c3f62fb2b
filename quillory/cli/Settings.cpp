#include <quillory/cli/Commands.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Settings.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string_view>

namespace quillory {
namespace {

struct SettingsOptions {
    std::string key;
    std::string value;
    bool hasValue = false;
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
    } else if (options.hasValue) {
        ChangeHoldingsSetting(name, options.value);
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
    } else if (options.hasValue) {
        ChangeSetting(options.key, options.value);
    } else {
        Print(ReadSetting(options.key) + "\n");
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
