#include <quillory/cli/OutputOptions.h>
#include <quillory/cli/RecordShower.h>
#include <quillory/cli/RecordsCommands.h>
#include <quillory/cli/StoredItems.h>
#include <quillory/store/Schema.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

using Ids = std::vector<std::int64_t>;

struct ShowOptions {
    Ids ids;
    ScreenChoice screen;
};

struct ExportOptions {
    Ids ids;
    OutputOptions output;
    bool quiet = false;
    bool verbose = false;
};

Status RunShow(const ShowOptions& options) {
    if (!LoadNames(options.screen)) return kStatusFailed;
    const std::optional<Database> database = OpenStoreToRead();
    Reporter reporter(true, true);
    RecordShower shower(options.screen, kCharsetAuto, reporter);
    const Status read = ReadStored(database, options.ids, reporter, [&](Item& item) {
        shower.Take(item);
        return true;
    });
    shower.Finish();
    return std::max(read, shower.Result());
}

Status RunDelete(const Ids& ids) {
    const Database database = OpenStore();
    RecordStore store(database);
    const Reporter reporter(false, true);
    Status status = kStatusWell;
    std::uint64_t deleted = 0;
    Transaction transaction(database);
    for (const std::int64_t id : ids) {
        if (store.Delete(id)) {
            ++deleted;
        } else {
            SayMissing(reporter, id);
            status = kStatusFindings;
        }
    }
    transaction.Commit();
    reporter.Say(Counted(deleted, "record") + " deleted");
    return status;
}

Status RunExport(const ExportOptions& options) {
    CheckNotTheStore(options.output.output);
    CheckNotTheStore(options.output.rejects);
    const std::optional<Database> database = OpenStoreToRead();
    Reporter reporter(options.quiet, options.verbose);
    const ItemSource stored = [&](const auto& take) {
        return ReadStored(database, options.ids, reporter, take);
    };
    return WriteItems(stored, kCharsetAuto, options.output, reporter);
}

CLI::Option* AddIds(CLI::App& command, Ids& ids, const std::string& text) {
    return command.add_option("ID", ids, text);
}

void AddRecordsShow(CLI::App& records, Run& run) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* command =
        records.add_subcommand("show", "Show records of the store as a person reads them");
    AddIds(*command, options->ids, "Records of these IDs")->required();
    AddScreenOptions(*command, options->screen);
    command->callback([options, &run] { run = [options] { return RunShow(*options); }; });
}

void AddRecordsDelete(CLI::App& records, Run& run) {
    auto ids = std::make_shared<Ids>();
    CLI::App* command = records.add_subcommand("delete", "Delete records from the store");
    AddIds(*command, *ids, "Records of these IDs")->required();
    command->callback([ids, &run] { run = [ids] { return RunDelete(*ids); }; });
}

void AddRecordsExport(CLI::App& records, Run& run) {
    auto options = std::make_shared<ExportOptions>();
    CLI::App* command = records.add_subcommand("export", "Write records of the store to a file");
    AddIds(*command, options->ids, "Records of these IDs; none for all");
    AddOutputOptions(*command, options->output);
    command->add_flag("-q,--quiet", options->quiet, "No progress bar and no summary");
    command->add_flag("-v,--verbose", options->verbose,
                      "Say every message, not the first of a kind");
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
