#include <quillory/exchange/Output.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFiles.h>
#include <quillory/jobs/WorkformHindrance.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformFile.h>
#include <quillory/text/QmText.h>
#include <zorby/workforms/TemplateList.h>

#include <set>

namespace quillory {
namespace {

std::vector<WorkformEntry> Chosen(const WorkformExportOptions& options,
                                  const WorkformCatalog& catalog) {
    std::vector<WorkformEntry> entries;
    if (options.names.empty()) {
        entries = catalog.Users();
        if (entries.empty()) throw UsageError("there are no workforms of your own to export");
    }
    for (const std::string& name : options.names) {
        entries.push_back(catalog.Find(name));
        if (entries.back().IsUsers()) continue;
        throw UsageError("\"" + entries.back().text +
                         "\" is a standard workform, which every quillory has");
    }
    return entries;
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

void SaveAll(const std::vector<FiledWorkform>& workforms, const WorkformImportOptions& options,
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

}  // namespace

Status ExportWorkforms(const WorkformExportOptions& options, const Reporter& reporter) {
    LoadSettings();
    if (!LoadWorkforms()) return kStatusFailed;
    CheckNotTheStore(options.file);
    WorkformCatalog catalog(reporter);
    std::vector<FiledWorkform> workforms;
    for (const WorkformEntry& entry : Chosen(options, catalog)) {
        const std::optional<std::string> block = catalog.Store()->Block(entry.id);
        if (!block) continue;  // another program has just deleted it
        workforms.push_back(
            ReadWorkformBlock(*block, StorePath() + ": workform " + std::to_string(entry.id)));
    }
    WriteOutput(options.file, WorkformFileBytes(workforms));
    reporter.Say(Counted(workforms.size(), "workform") + " exported");
    return kStatusWell;
}

Status ImportWorkforms(const WorkformImportOptions& options, const Reporter& reporter) {
    LoadSettings();
    if (!LoadWorkforms()) return kStatusFailed;
    Input input(options.file);
    const std::vector<FiledWorkform> workforms = ParseWorkformFile(ReadWhole(input), options.file);
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    Transaction transaction(database);
    SaveAll(workforms, options, *catalog.Store(), reporter);
    transaction.Commit();
    reporter.Say(Counted(workforms.size(), "workform") + " imported");
    return kStatusWell;
}

}  // namespace quillory
