#include <quillory/exchange/Output.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ExportWorkforms.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformFile.h>

namespace quillory {
namespace {

std::vector<WorkformEntry> Chosen(const ExportWorkformsOptions& options,
                                  const WorkformCatalog& catalog) {
    std::vector<WorkformEntry> entries;
    if (options.names.empty()) {
        entries = catalog.Users();
        if (entries.empty()) throw UsageError({FaultCode::kNoOwnWorkforms});
    }
    for (const std::string& name : options.names) {
        const WorkformEntry& entry = entries.emplace_back(catalog.Find(name));
        if (!entry.IsUsers()) throw UsageError({FaultCode::kStandardNotExported, {}, entry.text});
    }
    return entries;
}

}  // namespace

Status ExportWorkforms(const ExportWorkformsOptions& options, const Reporter& reporter) {
    LoadSettings();
    LoadWorkforms();
    CheckNotOurs(options.file);
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

}  // namespace quillory
