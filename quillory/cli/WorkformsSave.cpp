#include <quillory/cli/Commands.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/SaveWorkform.h>

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

void DeclareWorkformsSave(Arguments& command) {
    WorkformSaveOptions& options = command.Runs(RunSave);
    command.Positional("NAME", options.name, "What it is to be called").Required();
    command.Option("--from", options.from, "The workform that it begins as, by name or ID")
        .Required();
    command
        .Option("--set", options.settings,
                "A text that new records begin with, as 040a=TEXT; may be given again")
        .Shown("PLACE=TEXT");
    command.Flag("--force", options.force, "Replace a workform of your own of that name");
}

void DeclareWorkformsDelete(Arguments& command) {
    std::vector<std::string>& names = command.Runs(RunDelete);
    command.Positional("NAME", names, "Workforms, by name or ID").Required();
}

}  // namespace quillory
