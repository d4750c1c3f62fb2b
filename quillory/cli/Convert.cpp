#include <quillory/cli/Carrier.h>
#include <quillory/cli/Commands.h>
#include <quillory/cli/InputOptions.h>
#include <quillory/cli/OutputOptions.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct ConvertOptions {
    InputOptions input;
    OutputOptions output;
};

Status RunConvert(const ConvertOptions& options) {
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    Reporter reporter(options.input.quiet, options.input.verbose);
    const ItemSource files = [&](const auto& take) {
        return ReadFiles(options.input, reporter, take);
    };
    return WriteItems(files, options.input.charset, options.output, reporter);
}

}  // namespace

void AddConvert(CLI::App& program, Run& run) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command =
        program.add_subcommand("convert", "Carry records between forms and character sets");
    AddInputOptions(*command, options->input);
    AddOutputOptions(*command, options->output);
    command->callback([options, &run] { run = [options] { return RunConvert(*options); }; });
}

}  // namespace quillory
