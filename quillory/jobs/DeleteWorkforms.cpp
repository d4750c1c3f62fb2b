#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DeleteWorkforms.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/store/Schema.h>

namespace quillory {

Status DeleteWorkforms(const std::vector<std::string>& names, const Reporter& reporter) {
    LoadSettings();
    LoadWorkforms();
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    Transaction transaction(database);
    std::vector<WorkformEntry> deleted;
    for (const std::string& name : names) {
        const WorkformEntry& entry = deleted.emplace_back(catalog.Find(name));
        if (!entry.IsUsers()) throw UsageError({FaultCode::kStandardNotDeleted, {}, entry.text});
        if (!catalog.Store()->Delete(entry.id)) throw UsageError(FaultOfLock(entry.name));
    }
    transaction.Commit();
    for (const WorkformEntry& entry : deleted) {
        reporter.Say("workform " + std::to_string(entry.id) + " \"" + entry.text + "\" deleted");
    }
    return kStatusWell;
}

}  // namespace quillory
