#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/NewRecordArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/CatalogFiles.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct CatalogCommand {
    NewRecordChoice record;
    std::vector<std::string> files;
    OutputOptions output;
    ReporterOptions messages;
};

Status RunCatalog(const CatalogCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return CatalogFiles({NewRecordOptionsOf(command.record), command.files, command.output},
                        reporter);
}

}  // namespace

void AddCatalog(CLI::App& program, Run& run) {
    auto options = std::make_shared<CatalogCommand>();
    CLI::App* command =
        program.add_subcommand("catalog", "Make the records that files describe, from workforms");
    command->add_option("FILE", options->files, "TOML files of descriptions; - is standard input")
        ->required();
    AddNewRecordOptions(*command, options->record,
                        "The workform of records that name none, by its name or ID");
    AddOutputOptions(*command, options->output);
    AddMessageOptions(*command, options->messages);
    command->callback([options, &run] { run = [options] { return RunCatalog(*options); }; });
}

}  // namespace quillory
