#include <quillory/cli/Commands.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ExportWorkforms.h>
#include <quillory/jobs/ImportWorkforms.h>

namespace quillory {
namespace {

Status RunWorkformsExport(const ExportWorkformsOptions& options) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return ExportWorkforms(options, reporter);
}

Status RunWorkformsImport(const ImportWorkformsOptions& options) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return ImportWorkforms(options, reporter);
}

}  // namespace

void DeclareWorkformsExport(Arguments& command) {
    ExportWorkformsOptions& options = command.Runs(RunWorkformsExport);
    command.Positional("FILE", options.file, "Where they go; - for standard output")
        .Required()
        .File();
    command.Positional("NAME", options.names, "Workforms, by name or ID; none for all")
        .OffersNow(OfferedOwnWorkforms);
}

void DeclareWorkformsImport(Arguments& command) {
    ImportWorkformsOptions& options = command.Runs(RunWorkformsImport);
    command.Positional("FILE", options.file, "The file; - for standard input").Required().File();
    command.Flag("--force", options.force, "Replace workforms of your own of the same names");
}

}  // namespace quillory
