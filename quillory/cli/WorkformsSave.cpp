#include <quillory/cli/Commands.h>
#include <quillory/cli/NewRecordArguments.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/DeleteWorkforms.h>
#include <quillory/jobs/MakeWorkform.h>

namespace quillory {
namespace {

struct SaveCommand {
    MakeWorkformOptions workform;
    PlacesAndTexts sets;
};

Status RunSave(const SaveCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    MakeWorkformOptions options = command.workform;
    options.texts = EntriesOf(command.sets);
    return MakeWorkform(options, reporter);
}

Status RunWorkformsDelete(const std::vector<std::string>& names) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return DeleteWorkforms(names, reporter);
}

}  // namespace

void DeclareWorkformsSave(Arguments& command) {
    SaveCommand& save = command.Runs(RunSave);
    MakeWorkformOptions& options = save.workform;
    command.Positional("NAME", options.name, "What it is to be called").Required();
    command.Option("--from", options.from, "The workform that it begins as, by name or ID")
        .Required()
        .OffersNow(OfferedWorkforms);
    command.KeyValue(
        "--set", save.sets, "PLACE=TEXT",
        "A text that new records begin with, as 040a=TEXT; may be given several times");
    command.Flag("--force", options.force, "Replace a workform of your own of that name");
}

void DeclareWorkformsDelete(Arguments& command) {
    std::vector<std::string>& names = command.Runs(RunWorkformsDelete);
    command.Positional("NAME", names, "Workforms, by name or ID")
        .Required()
        .OffersNow(OfferedOwnWorkforms);
}

}  // namespace quillory
