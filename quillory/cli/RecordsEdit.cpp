#include <quillory/cli/Commands.h>
#include <quillory/cli/EditArguments.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/EditStore.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/reports/EditMessages.h>
#include <quillory/reports/HistoryText.h>

namespace quillory {
namespace {

struct StoreEditCommand {
    EditChoice choice;
    EditStoreOptions records;
    ReporterOptions messages;
    std::string report;
};

struct HistoryCommand {
    RecordIds ids;
    bool isJson = false;
};

constexpr const char* kRecordsEditDetails =
    "What the records were is kept: records history shows it, records undo puts it back. Either\n"
    "all records are edited that can be, or, after a failure, none. Without an ID the whole store "
    "is\nedited.";

Status RunStoreEdit(const StoreEditCommand& command) {
    CheckNotAnInput({command.choice.task}, command.report);
    EditWork work;
    EditTask task = work.TaskOf(command.choice);
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    EditMessages report(
        {command.report, command.records.isDryRun, ShowOptionsOf(ScreenChoice()).colour}, reporter);
    return EditStore(command.records, std::move(task), report, reporter);
}

Status RunUndo(const RecordIds& ids) {
    TerminalPort terminal;
    return UndoEdits(ids, Reporter(terminal, {false, true}));
}

Status RunHistory(const HistoryCommand& command) {
    TerminalPort terminal;
    const Reporter reporter(terminal, {false, true});
    const bool colour = ShowOptionsOf(ScreenChoice()).colour;
    Output output("-");
    const Status status = ReadHistory(command.ids, reporter, [&](const FormerVersion& version) {
        output.Write(command.isJson ? JsonLine(version) : ToText(version, colour));
    });
    output.Finish();
    return status;
}

void DeclareStoreEdit(Arguments& command, const OperationRow* row) {
    StoreEditCommand& options = command.Runs(RunStoreEdit);
    command.Footer(kRecordsEditDetails);
    DeclareEditChoice(command, row, options.choice);
    command.Positional("ID", options.records.ids, "Records of these IDs; all if none is given");
    command.Option("--report", options.report, "File for a line of JSON about each change").File();
    command.Flag("-n,--dry-run", options.records.isDryRun,
                 "Change no records, only show the lines that would change");
    DeclareMessages(command, options.messages);
}

}  // namespace

void DeclareRecordsEdit(Arguments& command) {
    DeclareStoreEdit(command, nullptr);
    for (const OperationRow& row : Operations()) {
        command.Command(std::string(row.name), std::string(row.summary),
                        [&row](Arguments& operation) { DeclareStoreEdit(operation, &row); });
    }
}

void DeclareRecordsUndo(Arguments& command) {
    RecordIds& ids = command.Runs(RunUndo);
    command.Positional("ID", ids,
                       "The last change of records of these IDs; if none is given, that of all "
                       "records that were changed together last");
}

void DeclareRecordsHistory(Arguments& command) {
    HistoryCommand& options = command.Runs(RunHistory);
    command.Positional("ID", options.ids, "Records of these IDs").Required();
    command.Choice("--format", options.isJson, {{"text", false}, {"jsonl", true}},
                   "text, or jsonl for a program: an object a line");
}

}  // namespace quillory
