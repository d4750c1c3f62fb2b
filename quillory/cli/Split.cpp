#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/SplitFiles.h>

namespace quillory {
namespace {

struct SplitCommand {
    SplitOptions split;
    ReporterOptions messages;
};

constexpr const char* kSplitDetails =
    "{} in the name of the output stands for the number of a file, or for the value at the place. "
    "A\n"
    "record goes to the file of its first value, and one without a value to that of \"none\". What "
    "a\n"
    "name of a file can't hold becomes _. All files get their names at the end, when they are\n"
    "complete; if anything goes wrong, there are none.";

Status RunSplit(const SplitCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return SplitFiles(command.split, reporter);
}

}  // namespace

void DeclareSplit(Arguments& command) {
    SplitCommand& options = command.Runs(RunSplit);
    command.Footer(kSplitDetails);
    DeclareInput(command, options.split.input, options.messages);
    command.Option("--every", options.split.records, "Records in a file, at most");
    command
        .Option("--size", options.split.size,
                "Bytes in a file, at most, such as 10M; a record that is larger stands alone")
        .Shown("SIZE")
        .Excludes("--every");
    command.Option("--by", options.split.by, "A place, such as 008/35-37: a file for each value")
        .Shown("PLACE")
        .Excludes("--every")
        .Excludes("--size");
    command
        .Option("-o,--output", options.split.output.output,
                "Names of the files, such as part-{}.mrc")
        .Shown("NAME")
        .Required()
        .File();
    command.Flag("--force", options.split.force, "Replace files that are there");
    command.Option("--most", options.split.most, "Files that may be made; 10000 if not given");
    DeclareWriting(command, options.split.output);
}

}  // namespace quillory
