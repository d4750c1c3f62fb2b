#include <quillory/cli/Commands.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/SettingRows.h>

#include <optional>
#include <string_view>

namespace quillory {
namespace {

struct SettingsOptions {
    std::string key;
    std::optional<std::string> value;  // to write
    bool holdings = false;
    bool isJson = false;
};

constexpr std::string_view kHoldingsLead = "holdings.";

void Show(const SettingRows& rows, bool isJson) {
    WriteOutput("-", isJson ? JsonText(rows) : ToText(rows));
}

void Show(const std::string& value) {
    WriteOutput("-", value + "\n");
}

Status RunHoldings(const SettingsOptions& options, const std::string& name) {
    LoadDictionaries();
    if (name.empty()) {
        Show(ListHoldingsSettings(), options.isJson);
    } else if (options.value) {
        ChangeHoldingsSetting(name, *options.value);
    } else {
        Show(ReadHoldingsSetting(name));
    }
    return kStatusWell;
}

Status RunSettings(const SettingsOptions& options) {
    LoadSettings();
    if (options.holdings) return RunHoldings(options, {});
    if (options.key.starts_with(kHoldingsLead)) {
        return RunHoldings(options, options.key.substr(kHoldingsLead.size()));
    }
    if (options.key.empty()) {
        Show(ListSettings(), options.isJson);
    } else if (options.value) {
        ChangeSetting(options.key, *options.value);
    } else {
        Show(ReadSetting(options.key));
    }
    return kStatusWell;
}

}  // namespace

void DeclareSettings(Arguments& command) {
    SettingsOptions& options = command.Runs(RunSettings);
    command
        .Positional("KEY", options.key, "A key by name or number, or holdings.NAME; none lists all")
        .OffersNow(OfferedSettings);
    command.Positional("VALUE", options.value, "The value to write");
    command.Flag("--holdings", options.holdings, "List the holdings settings");
    command.Choice("--format", options.isJson, {{"text", false}, {"json", true}},
                   "Form of a list: text, or json for a program");
}

}  // namespace quillory
