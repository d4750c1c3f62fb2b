#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/MergeFiles.h>

namespace quillory {
namespace {

struct MergeCommand {
    MergeOptions merge;
    ReporterOptions messages;
};

constexpr const char* kMergeDetails =
    "FILE is two files. The records of the first are written, with fields of the records of the\n"
    "second that have the same key (as in dedupe): a field goes after those of its tag, or where "
    "its\n"
    "tag stands in order. add puts in fields that a record does not have, replace those of a tag "
    "in\n"
    "the place of the record's own, missing only those of tags that the record lacks. Fields come "
    "in\n"
    "the character set of the record. Records of the second file that go with none are named.\n"
    "--where is asked of the records of the first file alone.";

Status RunMerge(const MergeCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return MergeFiles(command.merge, reporter);
}

}  // namespace

void DeclareMerge(Arguments& command) {
    MergeCommand& options = command.Runs(RunMerge);
    command.Footer(kMergeDetails);
    DeclareInputOf(command,
                   "Two files: the one whose records are written, and the one whose fields go "
                   "into them; - is standard input",
                   options.merge.input, options.messages);
    DeclareOutput(command, options.merge.output);
    command
        .Option("--fields", options.merge.fields,
                "Which fields of the second file, such as 6XX,856")
        .Shown("PLACES")
        .Required();
    command
        .Option("--by", options.merge.by,
                "What records that go together have in common, as in dedupe; 001 if not given")
        .Shown("PLACES")
        .Offers(UsualMatchPlaces());
    command.Choice(
        "--mode", options.merge.mode,
        {{"add", MergeMode::Add}, {"replace", MergeMode::Replace}, {"missing", MergeMode::Missing}},
        "What becomes of fields that a record has already; add if not given");
}

}  // namespace quillory
