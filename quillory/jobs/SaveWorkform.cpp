#include <quillory/faults/Errors.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/SaveWorkform.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformDefaults.h>
#include <quillory/jobs/WorkformHindrance.h>
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

// A workform of the user's that begins as `base` is. One that has a base itself is copied whole, so
// that nothing of its own is lost: a base's base is not asked.
TemplateHolder NewFrom(CTemplate& base) {
    if (!base.IsBaseTemplate()) return CopyOf(base);
    TemplateHolder workform(new CTemplate);
    workform->CloneFrom(base);
    return workform;
}

}  // namespace

Status SaveWorkform(const WorkformSaveOptions& options, const Reporter& reporter) {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const std::string name = WorkformText(options.name);
    Transaction transaction(database);
    const std::string hindrance = HindranceOfName(name, options.force, *catalog.Store());
    if (!hindrance.empty()) throw UsageError("\"" + options.name + "\" " + hindrance);
    const TemplateHolder base = catalog.Get(catalog.Find(options.from).id);
    const TemplateHolder workform = NewFrom(*base);
    for (const std::string& setting : options.settings) SetDefaultData(setting, *workform);
    workform->SetName(name);
    if (workform->SaveYourself(kAnybody, kUsable) == 0) {
        throw FileError(LockedText(options.name));
    }
    transaction.Commit();
    reporter.Say("workform " + std::to_string(workform->GetOwnID()) + " \"" + options.name +
                 "\" saved");
    return kStatusWell;
}

Status DeleteWorkforms(const std::vector<std::string>& names, const Reporter& reporter) {
    LoadSettings();
    LoadWorkforms();
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    Transaction transaction(database);
    std::vector<std::string> deleted;
    for (const std::string& name : names) {
        const WorkformEntry entry = catalog.Find(name);
        if (!entry.IsUsers()) {
            throw UsageError("\"" + entry.text +
                             "\" is a standard workform, which is not to be deleted");
        }
        if (!catalog.Store()->Delete(entry.id)) throw FileError(LockedText(entry.text));
        deleted.push_back("workform " + std::to_string(entry.id) + " \"" + entry.text +
                          "\" deleted");
    }
    transaction.Commit();
    for (const std::string& text : deleted) reporter.Say(text);
    return kStatusWell;
}

}  // namespace quillory
