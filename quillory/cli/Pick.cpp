#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/PickRecords.h>

namespace quillory {
namespace {

struct PickCommand {
    PickOptions pick;
    ReporterOptions messages;
};

constexpr const char* kPickDetails =
    "The records come out in the form and the order of the files, each byte as it was; for "
    "another\n"
    "form there is `quillory convert --where`. A record has to match --where, --records and "
    "--ids,\n"
    "as far as they are given. Damaged records are named and left out; --rejects keeps them.\n"
    "Status: 0 if records were picked, 1 if none was, for an ID or a number without a record, or "
    "with\n"
    "damage; 2 for wrong usage, or a file that can't be read or written.";

Status RunPick(const PickCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return PickRecords(command.pick, reporter);
}

}  // namespace

void DeclarePick(Arguments& command) {
    PickCommand& options = command.Runs(RunPick);
    PickOptions& pick = options.pick;
    command.Footer(kPickDetails);
    DeclareInput(command, pick.input, options.messages);
    DeclareJobs(command, pick.input.crew);
    command.Option("-o,--output", pick.output, "Where the records go; standard output if not given")
        .File();
    command.Option("--rejects", pick.rejects, "Where the bytes of what is no record go").File();
    command.Option("--records", pick.numbers, "Records of these numbers, such as 17,20-25")
        .Shown("NUMBERS")
        .NeverEmpty();
    command.Option("--ids", pick.ids, "Records whose control number (001) is a line of this file")
        .Shown("FILE")
        .File();
    command
        .Option("--id-place", pick.idPlace,
                "Where --ids looks, such as 020a; the first word of a value counts, too")
        .Shown("PLACES")
        .NeverEmpty();
    command.Flag("--invert", pick.invert, "The records that are not asked for");
    command.Option("--first", pick.first, "At most so many");
    command.Option("--sample", pick.sample, "So many by chance, in their order")
        .Excludes("--first");
    command.Option("--seed", pick.seed, "Another number gives another sample; 1 if not given");
}

}  // namespace quillory
