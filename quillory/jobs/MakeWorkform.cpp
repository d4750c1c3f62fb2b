#include <quillory/jobs/DefaultTexts.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/MakeWorkform.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/store/Schema.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

namespace quillory {
namespace {

using zorby::CTemplate;
using zorby::TemplateHolder;

TemplateHolder CopyOf(CTemplate& workform) {
    zorby::MemoryStream stream;
    {
        zorby::CArchive archive(stream, zorby::CArchive::store);
        workform.Serialize(archive);
    }
    stream.Seek(0);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    TemplateHolder copy(new CTemplate);
    copy->SetSavedTemplate();
    copy->Serialize(archive);
    copy->SetID(0);
    return copy;
}

// A workform of the user's that begins as `base` is. One that has a base itself is copied whole:
// the library asks only one base for what a workform lacks.
TemplateHolder NewFrom(CTemplate& base) {
    if (!base.IsBaseTemplate()) return CopyOf(base);
    TemplateHolder workform(new CTemplate);
    workform->CloneFrom(base);
    return workform;
}

}  // namespace

Status MakeWorkform(const MakeWorkformOptions& options, const Reporter& reporter) {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const std::string name = WorkformText(options.name);
    Transaction transaction(database);
    Fault fault = FaultOfName(name, options.force, *catalog.Store());
    if (fault) throw UsageError(std::move(fault));
    const TemplateHolder base = catalog.Get(catalog.Find(options.from).id);
    const TemplateHolder workform = NewFrom(*base);
    for (const Entry& text : options.texts) SetDefaultText(text, *workform);
    workform->SetName(name);
    if (workform->SaveYourself(kAnybody, kUsable) == 0) throw UsageError(FaultOfLock(name));
    transaction.Commit();
    reporter.Say("workform " + std::to_string(workform->GetOwnID()) + " \"" + options.name +
                 "\" saved");
    return kStatusWell;
}

}  // namespace quillory
