#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/DedupeFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/DedupeMessages.h>

namespace quillory {
namespace {

struct DedupeCommand {
    DedupeOptions dedupe;
    ReporterOptions messages;
    std::string report;
};

constexpr const char* kDedupeDetails =
    "Records are the same if they have a key in common: the values of a place, or with --by\n"
    "100a,245a the first values of all of the places together. --by more than once gives several\n"
    "ways to match. ISBNs of ten and thirteen digits are one and the same number, as are other\n"
    "numbers of 010, 022 and 035 however they are written; 001 counts as it stands, and other "
    "texts\n"
    "without case, diacritics and punctuation. title is 245 $a $b $n $p with the author (1XX $a), "
    "the\n"
    "date and the type of record. A record without a key is kept. No record goes that does not "
    "share\n"
    "a key with one that is kept. The fullest is the one with the most subfields.";

Status RunDedupe(const DedupeCommand& command) {
    CheckNotAnInput(command.dedupe.input.files, command.report);
    for (const std::string& path :
         {command.dedupe.output.output, command.dedupe.output.rejects, command.dedupe.removed}) {
        CheckNotTheSame(command.report, path, "the report and records");
    }
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    DedupeMessages report(command.report, command.dedupe, reporter);
    return DedupeFiles(command.dedupe, report, reporter);
}

}  // namespace

void DeclareDedupe(Arguments& command) {
    DedupeCommand& options = command.Runs(RunDedupe);
    command.Footer(kDedupeDetails);
    DeclareInput(command, options.dedupe.input, options.messages);
    DeclareOutput(command, options.dedupe.output);
    command
        .Option(
            "--by", options.dedupe.by,
            "What records that are the same have in common: 001, 020, 035, title, or any places")
        .Shown("PLACES")
        .Offers(UsualMatchPlaces())
        .Required();
    command.Choice("--keep", options.dedupe.keep,
                   {{"first", Keep::First}, {"last", Keep::Last}, {"fullest", Keep::Fullest}},
                   "Which of them is kept; the first if not given");
    command.Option("--removed", options.dedupe.removed, "Where the others go").File();
    command
        .Option("--report", options.report,
                "File that says which records were taken for one: lines of JSON if its name ends "
                "in .jsonl, else text")
        .File();
    command.Option("--memory", options.dedupe.memory, "Memory to sort keys in; 256M if not given")
        .Shown("SIZE");
}

}  // namespace quillory
