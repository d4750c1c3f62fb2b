#include <quillory/faults/Errors.h>
#include <quillory/jobs/RecordWorkform.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/jobs/WorkformFields.h>
#include <quillory/jobs/WorkformHelps.h>
#include <quillory/store/Schema.h>

#include <utility>

namespace quillory {

using zorby::CTemplate;

std::vector<Place> SaveAsWorkform(const Record& record, const std::string& name, bool force) {
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const std::string stored = WorkformText(name);
    Transaction transaction(database);
    Fault fault = FaultOfName(stored, force, *catalog.Store());
    if (fault) throw UsageError(std::move(fault));
    const CTemplate& base = StandardFor(record);
    const zorby::TemplateHolder workform(new CTemplate);
    workform->CloneFrom(base);
    std::vector<Place> leftOut = FillWorkform(record, base, *workform);
    CopyHelps(base, {}, *workform);
    workform->SetName(stored);
    fault = FaultOfControlFields(*workform);
    if (fault) throw UsageError(std::move(fault));
    if (workform->SaveYourself(kAnybody, kUsable) == 0) throw UsageError(FaultOfLock(stored));
    transaction.Commit();
    return leftOut;
}

}  // namespace quillory
