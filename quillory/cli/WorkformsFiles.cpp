#include <quillory/cli/Library.h>
#include <quillory/cli/StoredItems.h>
#include <quillory/cli/WorkformCatalog.h>
#include <quillory/cli/WorkformHindrance.h>
#include <quillory/cli/WorkformsCommands.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/QmText.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformFile.h>
#include <zorby/workforms/TemplateList.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <set>

namespace quillory {
namespace {

struct ExportOptions {
    std::string file;
    std::vector<std::string> names;  // none for all
};

struct ImportOptions {
    std::string file;
    bool force = false;
};

std::vector<WorkformEntry> Chosen(const ExportOptions& options, const WorkformCatalog& catalog) {
    std::vector<WorkformEntry> entries;
    if (options.names.empty()) {
        entries = catalog.Users();
        if (entries.empty()) throw FileError("there are no workforms of your own to export");
    }
    for (const std::string& name : options.names) {
        entries.push_back(catalog.Find(name));
        if (entries.back().IsUsers()) continue;
        throw FileError("\"" + entries.back().text +
                        "\" is a standard workform, which every quillory has");
    }
    return entries;
}

Status RunExport(const ExportOptions& options) {
    LoadSettings();
    if (!LoadWorkforms()) return kStatusFailed;
    CheckNotTheStore(options.file);
    const Reporter reporter(false, true);
    WorkformCatalog catalog(reporter);
    std::vector<FiledWorkform> workforms;
    for (const WorkformEntry& entry : Chosen(options, catalog)) {
        const std::optional<std::string> block = catalog.Store()->Block(entry.id);
        if (!block) continue;  // another program has just deleted it
        workforms.push_back(
            ReadWorkformBlock(*block, StorePath() + ": workform " + std::to_string(entry.id)));
    }
    Output output(options.file);
    output.Write(WorkformFileBytes(workforms));
    output.Finish();
    reporter.Say(Counted(workforms.size(), "workform") + " exported");
    return kStatusWell;
}

// Why a workform can't be imported; empty if it can.
std::string Hindrance(const FiledWorkform& workform, bool force, const WorkformStore& store,
                      std::set<std::string>& names) {
    if (!names.insert(workform.name).second) return "is there twice";
    const std::string hindrance = HindranceOfName(workform.name, force, store);
    return hindrance.empty() ? HindranceOfBlock(workform.block) : hindrance;
}

bool HasBase(const FiledWorkform& workform) {
    return workform.baseName == workform.name || IsStandardName(workform.baseName);
}

void SaveAll(const std::vector<FiledWorkform>& workforms, const ImportOptions& options,
             WorkformStore& store, const Reporter& reporter) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < workforms.size(); ++i) {
        const FiledWorkform& workform = workforms[i];
        const std::string text = QmToUtf8(workform.name);
        std::string place = options.file;
        place.append(": workform ").append(std::to_string(i + 1)).append(": ");
        const std::string hindrance = Hindrance(workform, options.force, store, names);
        if (!hindrance.empty()) {
            throw FileError(place.append("\"").append(text).append("\" ").append(hindrance));
        }
        if (!HasBase(workform)) {
            reporter.Say(place + "its base \"" + QmToUtf8(workform.baseName) +
                         "\" is not there; \"" + zorby::CTemplateList::kFallbackName +
                         "\" stands in for it");
        }
        if (store.Save(workform.name, kAnybody, kUsable, workform.block) == 0) {
            throw FileError(LockedText(text));
        }
    }
}

Status RunImport(const ImportOptions& options) {
    LoadSettings();
    if (!LoadWorkforms()) return kStatusFailed;
    Input input(options.file);
    const std::vector<FiledWorkform> workforms = ParseWorkformFile(ReadWhole(input), options.file);
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const Reporter reporter(false, true);
    Transaction transaction(database);
    SaveAll(workforms, options, *catalog.Store(), reporter);
    transaction.Commit();
    reporter.Say(Counted(workforms.size(), "workform") + " imported");
    return kStatusWell;
}

}  // namespace

void AddWorkformsExport(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<ExportOptions>();
    CLI::App* command = workforms.add_subcommand("export", "Write workforms of your own to a file");
    command->add_option("FILE", options->file, "Where they go; - for standard output")->required();
    command->add_option("NAME", options->names, "Workforms, by name or ID; none for all");
    command->callback([options, &run] { run = [options] { return RunExport(*options); }; });
}

void AddWorkformsImport(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<ImportOptions>();
    CLI::App* command = workforms.add_subcommand(
        "import", "Add the workforms of an exported file, all of them or none");
    command->add_option("FILE", options->file, "The file; - for standard input")->required();
    command->add_flag("--force", options->force, "Replace workforms of your own of the same names");
    command->callback([options, &run] { run = [options] { return RunImport(*options); }; });
}

}  // namespace quillory
