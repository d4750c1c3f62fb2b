#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/NewRecordArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/CatalogFiles.h>

namespace quillory {
namespace {

struct CatalogCommand {
    NewRecordChoice record;
    std::vector<std::string> files;
    std::string memory = "64M";
    OutputOptions output;
    ReporterOptions messages;
};

Status RunCatalog(const CatalogCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return CatalogFiles(
        {NewRecordOptionsOf(command.record), command.files, command.output, command.memory},
        reporter);
}

}  // namespace

void DeclareCatalog(Arguments& command) {
    CatalogCommand& options = command.Runs(RunCatalog);
    command.Positional("FILE", options.files, "TOML files of descriptions; - is standard input")
        .Required()
        .File();
    DeclareNewRecord(command, options.record,
                     "The workform of records that name none, by its name or ID");
    DeclareOutput(command, options.output);
    command.Option("--memory", options.memory, "The most that is held of a file; 64M if not given")
        .Shown("SIZE");
    DeclareMessages(command, options.messages);
}

}  // namespace quillory
