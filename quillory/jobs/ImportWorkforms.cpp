#include <quillory/exchange/Input.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ImportWorkforms.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformFile.h>
#include <quillory/text/QmText.h>
#include <zorby/workforms/TemplateList.h>

#include <set>

namespace quillory {
namespace {

// Saves the workforms of a file one after the other.
class Import {
public:
    Import(const ImportWorkformsOptions& options, WorkformStore& store, const Reporter& reporter)
        : options_(options), store_(store), reporter_(reporter) {}

    void Save(const FiledWorkform& workform) {
        const std::string place = options_.file + ": workform " + std::to_string(names_.size() + 1);
        Fault fault = FaultOf(workform);
        if (fault) throw FileError(place, std::move(fault));
        if (!HasBase(workform)) {
            reporter_.Say(place + ": " +
                          FaultReason({FaultCode::kNoBase,
                                       {},
                                       QmToUtf8(workform.baseName),
                                       zorby::CTemplateList::kFallbackName}));
        }
        if (store_.Save(workform.name, kAnybody, kUsable, workform.block) == 0) {
            throw FileError(place, FaultOfLock(workform.name));
        }
        names_.insert(workform.name);
    }

private:
    Fault FaultOf(const FiledWorkform& workform) const {
        if (names_.contains(workform.name)) {
            return {FaultCode::kWorkformTwice, {}, QmToUtf8(workform.name)};
        }
        Fault fault = FaultOfName(workform.name, options_.force, store_);
        return fault ? fault : FaultOfControlFields(workform.block);
    }

    static bool HasBase(const FiledWorkform& workform) {
        return workform.baseName == workform.name || IsStandardName(workform.baseName);
    }

    const ImportWorkformsOptions& options_;
    WorkformStore& store_;
    const Reporter& reporter_;
    std::set<std::string> names_;
};

}  // namespace

Status ImportWorkforms(const ImportWorkformsOptions& options, const Reporter& reporter) {
    LoadSettings();
    LoadWorkforms();
    Input input(options.file);
    const std::vector<FiledWorkform> workforms = ParseWorkformFile(ReadWhole(input), options.file);
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    Transaction transaction(database);
    Import import(options, *catalog.Store(), reporter);
    for (const FiledWorkform& workform : workforms) import.Save(workform);
    transaction.Commit();
    reporter.Say(Counted(workforms.size(), "workform") + " imported");
    return kStatusWell;
}

}  // namespace quillory
