#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/OutputArguments.h>
#include <quillory/cli/RecordsCommands.h>
#include <quillory/cli/ScreenArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/jobs/StoreJobs.h>
#include <quillory/jobs/StoredItems.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
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
    RecordShower shower(ShowOptionsOf(options.screen), kCharsetAuto, reporter);
    const Status read = ReadStored(database, options.ids, reporter, [&](Item& item) {
        shower.Take(item);
        return true;
    });
    shower.Finish();
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

CLI::Option* AddIds(CLI::App& command, RecordIds& ids, const std::string& text) {
    return command.add_option("ID", ids, text);
}

void AddRecordsShow(CLI::App& records, Run& run) {
    auto options = std::make_shared<ShowCommand>();
    CLI::App* command =
        records.add_subcommand("show", "Show records of the store as a person reads them");
    AddIds(*command, options->ids, "Records of these IDs")->required();
    AddScreenOptions(*command, options->screen);
    command->callback([options, &run] { run = [options] { return RunShow(*options); }; });
}

void AddRecordsDelete(CLI::App& records, Run& run) {
    auto ids = std::make_shared<RecordIds>();
    CLI::App* command = records.add_subcommand("delete", "Delete records from the store");
    AddIds(*command, *ids, "Records of these IDs")->required();
    command->callback([ids, &run] { run = [ids] { return RunDelete(*ids); }; });
}

void AddRecordsExport(CLI::App& records, Run& run) {
    auto options = std::make_shared<ExportCommand>();
    CLI::App* command = records.add_subcommand("export", "Write records of the store to a file");
    AddIds(*command, options->records.ids, "Records of these IDs; none for all");
    AddOutputOptions(*command, options->records.output);
    AddMessageOptions(*command, options->messages);
    command->callback([options, &run] { run = [options] { return RunExport(*options); }; });
}

}  // namespace

void AddRecords(CLI::App& program, Run& run) {
    CLI::App* records = program.add_subcommand("records", "The records that quillory keeps");
    records->require_subcommand(1);
    AddRecordsAdd(*records, run);
    AddRecordsList(*records, run);
    AddRecordsShow(*records, run);
    AddRecordsDelete(*records, run);
    AddRecordsExport(*records, run);
}

}  // namespace quillory
