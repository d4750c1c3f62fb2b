#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/StoreJobs.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

struct StoreShowCommand {
    StoredChoice choice;
    ScreenChoice screen;
};

struct StoreExportCommand {
    StoreExportOptions records;
    ReporterOptions messages;
};

Status RunStoreShow(const StoreShowCommand& options) {
    if (options.choice.ids.empty() && options.choice.where.AsksForAll()) {
        throw UsageError("which records are to be shown is missing: their IDs, or --where");
    }
    LoadNames(options.screen);
    const std::optional<Database> database = OpenStoreToRead();
    TerminalPort terminal;
    Reporter reporter(terminal, {true, true});
    Output output("-");
    RecordShower shower(ShowOptionsOf(options.screen), kCharsetAuto, output, reporter);
    const Status read = ReadStored(database, options.choice, reporter, [&](Item& item) {
        shower.Take(item);
        return true;
    });
    shower.Finish();
    output.Finish();
    return std::max(read, shower.Result());
}

Status RunStoreDelete(const StoredChoice& choice) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return DeleteRecordsFromStore(choice, reporter);
}

Status RunStoreExport(const StoreExportCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return ExportRecordsOfStore(command.records, reporter);
}

}  // namespace

void DeclareRecordsShow(Arguments& command) {
    StoreShowCommand& options = command.Runs(RunStoreShow);
    command.Positional("ID", options.choice.ids, "Records of these IDs");
    DeclareWhere(command, options.choice.where);
    DeclareScreen(command, options.screen);
}

void DeclareRecordsDelete(Arguments& command) {
    StoredChoice& choice = command.Runs(RunStoreDelete);
    command.Positional("ID", choice.ids, "Records of these IDs");
    DeclareWhere(command, choice.where);
}

void DeclareRecordsExport(Arguments& command) {
    StoreExportCommand& options = command.Runs(RunStoreExport);
    command.Positional("ID", options.records.choice.ids, "Records of these IDs; none for all");
    DeclareWhere(command, options.records.choice.where);
    DeclareOutput(command, options.records.output);
    DeclareMessages(command, options.messages);
}

}  // namespace quillory
