#include <quillory/cli/RecordsCommands.h>
#include <quillory/cli/StoredItems.h>
#include <quillory/exchange/Output.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <array>
#include <ctime>
#include <memory>
#include <optional>

namespace quillory {
namespace {

struct ListOptions {
    RecordSelection selection;
    std::uint64_t limit = 0;  // 0 for none
    bool json = false;
};

// As ISO 8601.
std::string TimeText(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    gmtime_r(&time, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

std::string JsonLine(const StoredRecord& record) {
    nlohmann::ordered_json line{
        {"id", record.id},
        {"control_number", record.summary.controlNumber},
        {"title", record.summary.title},
        {"type", record.summary.type},
        {"added", TimeText(record.added)},
        {"changed", TimeText(record.changed)},
    };
    if (record.workform != 0) line["workform"] = record.workform;
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

std::string TextLine(const StoredRecord& record) {
    constexpr std::size_t kIdWidth = 8;
    constexpr std::size_t kNumberWidth = 16;
    constexpr std::size_t kTypeWidth = 2;
    return Padded(std::to_string(record.id), kIdWidth) + " " +
           Padded(record.summary.controlNumber, kNumberWidth) + " " +
           Padded(record.summary.type, kTypeWidth) + " " + record.summary.title + "\n";
}

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
        output.Write(options.json ? JsonLine(record) : TextLine(record));
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
