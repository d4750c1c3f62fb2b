#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ExportFiles.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct ExportCommand {
    ExportOptions records;
    ReporterOptions messages;
};

void AddHoldingsOptions(CLI::App& command, HoldingsOptions& options) {
    command.add_option("--holdings", options.file,
                       "The copies of the records, as tab-separated text or JSON lines; those that "
                       "records hold if not given");
    command.add_option("--holdings-type", options.type,
                       "The holdings system to write for, by name or number; that of the settings "
                       "if not given");
    command.add_option("--holdings-from", options.from,
                       "The holdings system whose fields the records hold; the one to write for if "
                       "not given");
}

Status RunExport(const ExportCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return ExportFiles(command.records, reporter);
}

}  // namespace

void AddExport(CLI::App& program, Run& run) {
    auto options = std::make_shared<ExportCommand>();
    CLI::App* command =
        program.add_subcommand("export", "Check records, and write those that may leave");
    AddInputOptions(*command, options->records.input, options->messages);
    AddOutputOptions(*command, options->records.output);
    AddPolicyOptions(*command, options->records.policy);
    AddHoldingsOptions(*command, options->records.holdings);
    command->callback([options, &run] { run = [options] { return RunExport(*options); }; });
}

}  // namespace quillory
