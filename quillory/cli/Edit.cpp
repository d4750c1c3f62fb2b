#include <quillory/cli/Commands.h>
#include <quillory/cli/EditArguments.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/EditFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/reports/EditMessages.h>

namespace quillory {
namespace {

struct EditCommand {
    EditChoice choice;
    EditFilesOptions files;
    ReporterOptions messages;
    std::string report;
};

constexpr const char* kEditDetails =
    "Every record is written, edited or not; an unchanged one keeps its bytes. A record that an\n"
    "edit would make unreadable, such as one too long for the form, stays as it was and is named.\n"
    "Status: 0 if all is well; 1 with damage, rejects or records that could not be edited, and "
    "for\n"
    "--dry-run with changes to be made; 2 for wrong usage, or a file that can't be read or "
    "written.";

// The file of the task is read, too.
void CheckEditOutputs(const EditCommand& command) {
    const OutputOptions& output = command.files.output;
    std::vector<std::string> inputs = command.files.input.files;
    if (!command.choice.task.empty()) inputs.push_back(command.choice.task);
    for (const std::string& path : {output.output, output.rejects, command.report}) {
        CheckNotAnInput(inputs, path);
    }
    CheckNotTheSame(command.report, output.output, "the records and the report");
    CheckNotTheSame(command.report, output.rejects, "the rejects and the report");
}

Status RunEdit(const EditCommand& command) {
    CheckEditOutputs(command);
    EditWork work;
    EditTask task = work.TaskOf(command.choice);
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    const bool isDryRun = command.files.isDryRun;
    EditMessages report({command.report, isDryRun, ShowOptionsOf({}).colour}, reporter);
    return EditFiles(command.files, std::move(task), report, reporter,
                     [&] { return work.TaskOf(command.choice); });
}

void DeclareEditOf(Arguments& command, const OperationRow* row) {
    EditCommand& options = command.Runs(RunEdit);
    command.Footer(kEditDetails);
    DeclareEditChoice(command, row, options.choice);
    DeclareFiles(command, options.files.input, options.messages);
    DeclareJobs(command, options.files.input.crew);
    DeclareOutput(command, options.files.output);
    command.Option("--report", options.report, "File for a line of JSON about each change").File();
    command
        .Flag("-n,--dry-run", options.files.isDryRun,
              "Write no records, only show the lines that would change")
        .Excludes("--output")
        .Excludes("--rejects");
}

}  // namespace

void DeclareEdit(Arguments& command) {
    DeclareEditOf(command, nullptr);
    for (const OperationRow& row : Operations()) {
        command.Command(std::string(row.name), std::string(row.summary),
                        [&row](Arguments& operation) { DeclareEditOf(operation, &row); });
    }
}

}  // namespace quillory
