#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/SortFiles.h>

namespace quillory {
namespace {

struct SortCommand {
    SortOptions sort;
    ReporterOptions messages;
};

constexpr const char* kSortDetails =
    "Titles are sorted without the characters that an indicator excludes from filing, and all "
    "texts\n"
    "without case: a letter with a diacritic comes after the plain one, and other scripts come\n"
    "after the Latin. Codes (008/35-37, 245/1) are sorted byte by byte. The first value of a "
    "record\n"
    "counts. Records that are equal stay in their order, and those without a value come last.\n"
    "What memory does not hold is kept in temporary files, in the folder that TMPDIR names.";

Status RunSort(const SortCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return SortFiles(command.sort, reporter);
}

}  // namespace

void DeclareSort(Arguments& command) {
    SortCommand& options = command.Runs(RunSort);
    command.Footer(kSortDetails);
    DeclareInput(command, options.sort.input, options.messages);
    DeclareOutput(command, options.sort.output);
    command
        .Option("--by", options.sort.by,
                "Places to sort by, one after the other, such as 100a,245a or 008/07-10; title is "
                "245 $a $n $p $b")
        .Shown("PLACES")
        .Required();
    command.Flag("--numeric", options.sort.isNumeric, "By the first number in each value");
    command.Flag("--reverse", options.sort.isReverse, "The last ones first");
    command.Option("--memory", options.sort.memory, "Memory to sort in; 256M if not given")
        .Shown("SIZE");
}

}  // namespace quillory
