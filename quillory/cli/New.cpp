#include <quillory/cli/Commands.h>
#include <quillory/cli/NewRecordArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/Prompter.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/MakeRecord.h>

#include <iostream>
#include <unistd.h>

namespace quillory {
namespace {

struct NewOptions {
    NewRecordChoice record;
    std::string from;
    bool noInput = false;
    bool all = false;
    bool quiet = false;
    OutputOptions output;
};

bool IsPersonThere() {
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

// The bytes of ISO 2709 are nothing for a terminal.
OutputOptions OutputFor(const NewOptions& options) {
    OutputOptions output = options.output;
    const bool isScreen = output.output == "-" && isatty(STDOUT_FILENO) == 1;
    if (isScreen && output.form == nullptr) output.form = FormNamed("mrk");
    return output;
}

Status RunNew(const NewOptions& options) {
    DraftFiller ask;
    if (!options.noInput && IsPersonThere()) {
        ask = [&options](const Pattern& pattern, Draft& draft) {
            Prompter(std::cin, std::cerr, options.all).Fill(pattern, draft);
        };
    }
    TerminalPort terminal;
    Reporter reporter(terminal, {options.quiet, true});
    return MakeRecord({NewRecordOptionsOf(options.record), options.from, OutputFor(options)}, ask,
                      reporter);
}

}  // namespace

void DeclareNew(Arguments& command) {
    NewOptions& options = command.Runs(RunNew);
    DeclareNewRecord(command, options.record,
                     "The workform, by its name or ID; that of --from if not given");
    command.Option("--from", options.from, "A TOML file that describes the record").File();
    command.Flag("--no-input", options.noInput, "Ask nothing, even on a terminal");
    command.Flag("--all", options.all, "Ask for every subfield of the workform");
    DeclareOutput(command, options.output);
    command.Flag("-q,--quiet", options.quiet, "No summary");
}

}  // namespace quillory
