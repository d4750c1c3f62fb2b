#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/StoreJobs.h>
#include <quillory/jobs/StoredItems.h>

#include <algorithm>
#include <optional>

namespace quillory {
namespace {

struct ShowCommand {
    RecordIds ids;
    ScreenChoice screen;
};

struct ExportCommand {
    StoreExportOptions records;
    ReporterOptions messages;
};

Status RunShow(const ShowCommand& options) {
    if (!LoadNames(options.screen)) return kStatusFailed;
    const std::optional<Database> database = OpenStoreToRead();
    TerminalPort terminal;
    Reporter reporter(terminal, {true, true});
    Output output("-");
    RecordShower shower(ShowOptionsOf(options.screen), kCharsetAuto, output, reporter);
    const Status read = ReadStored(database, options.ids, reporter, [&](Item& item) {
        shower.Take(item);
        return true;
    });
    shower.Finish();
    output.Finish();
    return std::max(read, shower.Result());
}

Status RunDelete(const RecordIds& ids) {
    TerminalPort terminal;
    Reporter reporter(terminal, {false, true});
    return DeleteRecordsFromStore(ids, reporter);
}

Status RunExport(const ExportCommand& command) {
    TerminalPort terminal;
    Reporter reporter(terminal, command.messages);
    return ExportRecordsOfStore(command.records, reporter);
}

}  // namespace

void DeclareRecordsShow(Arguments& command) {
    ShowCommand& options = command.Runs(RunShow);
    command.Positional("ID", options.ids, "Records of these IDs").Required();
    DeclareScreen(command, options.screen);
}

void DeclareRecordsDelete(Arguments& command) {
    RecordIds& ids = command.Runs(RunDelete);
    command.Positional("ID", ids, "Records of these IDs").Required();
}

void DeclareRecordsExport(Arguments& command) {
    ExportCommand& options = command.Runs(RunExport);
    command.Positional("ID", options.records.ids, "Records of these IDs; none for all");
    DeclareOutput(command, options.records.output);
    DeclareMessages(command, options.messages);
}

}  // namespace quillory
