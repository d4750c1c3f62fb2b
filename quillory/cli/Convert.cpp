#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/ConvertFiles.h>

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

void DeclareConvert(Arguments& command) {
    ConvertCommand& options = command.Runs(RunConvert);
    DeclareInput(command, options.convert.input, options.messages);
    DeclareJobs(command, options.convert.input.crew);
    DeclareOutput(command, options.convert.output);
}

}  // namespace quillory
