#include <quillory/cli/TerminalPort.h>
#include <quillory/cli/WorkformsCommands.h>
#include <quillory/jobs/SaveWorkform.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

Status RunSave(const WorkformSaveOptions& options) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return SaveWorkform(options, reporter);
}

Status RunDelete(const std::vector<std::string>& names) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return DeleteWorkforms(names, reporter);
}

}  // namespace

void AddWorkformsSave(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<WorkformSaveOptions>();
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
