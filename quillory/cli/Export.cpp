#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/PolicyArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ExportFiles.h>

namespace quillory {
namespace {

struct ExportCommand {
    ExportOptions records;
    ReporterOptions messages;
};

void DeclareHoldings(Arguments& command, HoldingsOptions& options) {
    command
        .Option("--holdings", options.file,
                "The copies of the records, as tab-separated text or JSON lines; those that "
                "records hold if not given")
        .File();
    command
        .Option("--holdings-type", options.type,
                "The holdings system to write for, by name or number; that of the settings "
                "if not given")
        .NeverEmpty()
        .OffersNow(OfferedHoldingsSystems);
    command
        .Option("--holdings-from", options.from,
                "The holdings system whose fields the records hold; the one to write for if "
                "not given")
        .NeverEmpty()
        .OffersNow(OfferedHoldingsSystems);
    command
        .Option("--memory", options.memory,
                "The most that is held of a file of copies; 64M if "
                "not given")
        .Shown("SIZE");
}

Status RunExport(const ExportCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return ExportFiles(command.records, reporter);
}

}  // namespace

void DeclareExport(Arguments& command) {
    ExportCommand& options = command.Runs(RunExport);
    DeclareInput(command, options.records.input, options.messages);
    DeclareJobs(command, options.records.input.crew);
    DeclareOutput(command, options.records.output);
    DeclarePolicy(command, options.records.policy);
    DeclareHoldings(command, options.records.holdings);
}

}  // namespace quillory
