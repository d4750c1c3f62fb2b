#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ConvertFiles.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct ConvertCommand {
    ConvertOptions convert;
    ReporterOptions messages;
};

Status RunConvert(const ConvertCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return ConvertFiles(command.convert, reporter);
}

}  // namespace

void AddConvert(CLI::App& program, Run& run) {
    auto options = std::make_shared<ConvertCommand>();
    CLI::App* command =
        program.add_subcommand("convert", "Carry records between forms and character sets");
    AddInputOptions(*command, options->convert.input, options->messages);
    AddOutputOptions(*command, options->convert.output);
    command->callback([options, &run] { run = [options] { return RunConvert(*options); }; });
}

}  // namespace quillory
