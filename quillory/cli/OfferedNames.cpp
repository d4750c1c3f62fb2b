#include <quillory/cli/OfferedNames.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/Reporter.h>
#include <quillory/jobs/Settings.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/reports/HoldingsTypeDocument.h>

namespace quillory {
namespace {

WorkformCatalog LoadedWorkforms() {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    TerminalPort terminal;
    return WorkformCatalog(Reporter(terminal, {false, true}));
}

void AddNames(const std::vector<WorkformEntry>& entries, std::vector<std::string>& names) {
    for (const WorkformEntry& entry : entries) names.push_back(entry.text);
}

}  // namespace

std::vector<std::string> OfferedWorkforms() {
    const WorkformCatalog catalog = LoadedWorkforms();
    std::vector<std::string> names;
    AddNames(catalog.Standard(), names);
    AddNames(catalog.Users(), names);
    return names;
}

std::vector<std::string> OfferedOwnWorkforms() {
    std::vector<std::string> names;
    AddNames(LoadedWorkforms().Users(), names);
    return names;
}

std::vector<std::string> OfferedHoldingsSystems() {
    LoadSettings();
    LoadDictionaries();
    std::vector<std::string> names;
    for (HoldingsTypeDocument& type : DescribeHoldingsTypes()) {
        names.push_back(std::move(type.name));
    }
    return names;
}

std::vector<std::string> OfferedSettings() {
    LoadSettings();
    LoadDictionaries();
    std::vector<std::string> names;
    for (const SettingRow& row : ListSettings()) {
        names.emplace_back(ShortSettingName(row.name));
    }
    for (SettingRow& row : ListHoldingsSettings()) names.push_back(std::move(row.name));
    return names;
}

}  // namespace quillory
