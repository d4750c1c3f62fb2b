#include <quillory/cli/TerminalPort.h>
#include <quillory/cli/WorkformsCommands.h>
#include <quillory/jobs/WorkformFiles.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

Status RunExport(const WorkformExportOptions& options) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return ExportWorkforms(options, reporter);
}

Status RunImport(const WorkformImportOptions& options) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return ImportWorkforms(options, reporter);
}

}  // namespace

void AddWorkformsExport(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<WorkformExportOptions>();
    CLI::App* command = workforms.add_subcommand("export", "Write workforms of your own to a file");
    command->add_option("FILE", options->file, "Where they go; - for standard output")->required();
    command->add_option("NAME", options->names, "Workforms, by name or ID; none for all");
    command->callback([options, &run] { run = [options] { return RunExport(*options); }; });
}

void AddWorkformsImport(CLI::App& workforms, Run& run) {
    auto options = std::make_shared<WorkformImportOptions>();
    CLI::App* command = workforms.add_subcommand(
        "import", "Add the workforms of an exported file, all of them or none");
    command->add_option("FILE", options->file, "The file; - for standard input")->required();
    command->add_flag("--force", options->force, "Replace workforms of your own of the same names");
    command->callback([options, &run] { run = [options] { return RunImport(*options); }; });
}

}  // namespace quillory
