#include <quillory/cli/InputArguments.h>
#include <quillory/cli/RecordsCommands.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/StoreJobs.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace quillory {
namespace {

struct AddCommand {
    AddOptions records;
    ReporterOptions messages;
};

Status RunAdd(const AddCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return AddRecordsToStore(command.records, reporter);
}

}  // namespace

void AddRecordsAdd(CLI::App& records, Run& run) {
    auto options = std::make_shared<AddCommand>();
    CLI::App* command = records.add_subcommand("add", "Add the records of files to the store");
    AddInputOptions(*command, options->records.input, options->messages);
    command->add_option("--rejects", options->records.rejects,
                        "Where the bytes of everything go that is not added");
    command->callback([options, &run] { run = [options] { return RunAdd(*options); }; });
}

}  // namespace quillory
