#include <quillory/cli/RecordsCommands.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/reports/StoredRecordLines.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace quillory {
namespace {

struct ListOptions {
    RecordSelection selection;
    std::uint64_t limit = 0;  // 0 for none
    bool json = false;
};

// Empty for a number of plain digits that fits.
std::string NumberFault(const std::string& text) {
    constexpr std::size_t kMostDigits = 18;
    const bool isNumber = !text.empty() && text.size() <= kMostDigits &&
                          text.find_first_not_of("0123456789") == text.npos;
    return isNumber ? "" : "\"" + text + "\" is no number from 0 on";
}

Status RunList(const ListOptions& options) {
    const std::optional<Database> database = OpenStoreToRead();
    Output output("-");
    std::uint64_t listed = 0;
    const auto list = [&](const StoredRecord& record) {
        output.Write(options.json ? StoredRecordJson(record) : StoredRecordText(record));
        return ++listed != options.limit;
    };
    if (database) RecordStore(*database).Walk(options.selection, list);
    output.Finish();
    const bool isSearch = options.selection.controlNumber || options.selection.titlePrefix;
    return isSearch && listed == 0 ? kStatusFindings : kStatusWell;
}

}  // namespace

void AddRecordsList(CLI::App& records, Run& run) {
    auto options = std::make_shared<ListOptions>();
    CLI::App* command = records.add_subcommand(
        "list", "List the store: ID, control number, type and level (leader 06-07), title");
    RecordSelection& selection = options->selection;
    command->add_option("--control-number", selection.controlNumber,
                        "Only records of this control number (001)");
    command->add_option("--title", selection.titlePrefix,
                        "Only titles that begin so; case and diacritics don't count");
    command->add_option("--after", selection.after, "Only IDs above this")->check(NumberFault);
    command->add_option("--limit", options->limit, "At most so many; 0, as if not given, for all")
        ->check(NumberFault);
    command->add_flag("--json", options->json, "A JSON object a line, for a program");
    command->callback([options, &run] { run = [options] { return RunList(*options); }; });
}

}  // namespace quillory
