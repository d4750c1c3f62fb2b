#include <quillory/cli/Library.h>
#include <quillory/cli/WorkformCatalog.h>
#include <quillory/cli/WorkformDefaults.h>
#include <quillory/cli/WorkformHindrance.h>
#include <quillory/cli/WorkformsCommands.h>
#include <quillory/exchange/Input.h>
#include <quillory/store/Schema.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

using zorby::CTemplate;
using zorby::TemplateHolder;

struct SaveOptions {
    std::string name;
    std::string from;
    std::vector<std::string> settings;
    bool force = false;
};

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

Status RunSave(const SaveOptions& options) {
    LoadSettings();
    if (!LoadDictionaries({}) || !LoadWorkforms()) return kStatusFailed;
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const std::string name = WorkformText(options.name);
    Transaction transaction(database);
    const std::string hindrance = HindranceOfName(name, options.force, *catalog.Store());
    if (!hindrance.empty()) throw FileError("\"" + options.name + "\" " + hindrance);
    const TemplateHolder base = catalog.Get(catalog.Find(options.from).id);
    const TemplateHolder workform = NewFrom(*base);
    for (const std::string& setting : options.settings) SetDefaultData(setting, *workform);
    workform->SetName(name);
    if (workform->SaveYourself(kAnybody, kUsable) == 0) {
        throw FileError(LockedText(options.name));
    }
    transaction.Commit();
    Reporter(false, true)
        .Say("workform " + std::to_string(workform->GetOwnID()) + " \"" + options.name +
             "\" saved");
    return kStatusWell;
}

Status RunDelete(const std::vector<std::string>& names) {
    LoadSettings();
    if (!LoadWorkforms()) return kStatusFailed;
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    Transaction transaction(database);
    std::vector<std::string> deleted;
    for (const std::string& name : names) {
        const WorkformEntry entry = catalog.Find(name);
        if (!entry.IsUsers()) {
            throw FileError("\"" + entry.text +
                            "\" is a standard workform, which is not to be deleted");
        }
        if (!catalog.Store()->Delete(entry.id)) throw FileError(LockedText(entry.text));
        deleted.push_back("workform " + std::to_string(entry.id) + " \"" + entry.text +
                          "\" deleted");
    }
    transaction.Commit();
    for (const std::string& text : deleted) Reporter(false, true).Say(text);
    return kStatusWell;
}

}  // namespace

void AddWorkformsSave(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<SaveOptions>();
    CLI::App* command =
        workforms.add_subcommand("save", "Make a workform of your own from another");
    command->add_option("NAME", options->name, "What it is to be called")->required();
    command->add_option("--from", options->from, "The workform that it begins as, by name or ID")
        ->required();
    command
        ->add_option("--set", options->settings,
                     "A text that new records begin with, as 040a=TEXT; may be given again")
        ->take_all()
        ->allow_extra_args(false);
    command->add_flag("--force", options->force, "Replace a workform of your own of that name");
    command->callback([options, &run] { run = [options] { return RunSave(*options); }; });
}

void AddWorkformsDelete(CLI::App& workforms, Run& run) {
    auto names = std::make_shared<std::vector<std::string>>();
    CLI::App* command =
        workforms.add_subcommand("delete", "Delete workforms of your own, all of these or none");
    command->add_option("NAME", *names, "Workforms, by name or ID")->required();
    command->callback([names, &run] { run = [names] { return RunDelete(*names); }; });
}

}  // namespace quillory
