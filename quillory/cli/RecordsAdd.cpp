#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/StoreJobs.h>

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

void DeclareRecordsAdd(Arguments& command) {
    AddCommand& options = command.Runs(RunAdd);
    DeclareInput(command, options.records.input, options.messages);
    command
        .Option("--rejects", options.records.rejects,
                "Where the bytes of everything go that is not added")
        .File();
}

}  // namespace quillory
