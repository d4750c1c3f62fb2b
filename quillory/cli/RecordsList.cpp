#include <quillory/cli/Commands.h>
#include <quillory/cli/InputArguments.h>
#include <quillory/cli/TerminalPort.h>
#include <quillory/exchange/Output.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/reports/StoredRecordRow.h>

#include <limits>
#include <optional>

namespace quillory {
namespace {

struct ListOptions {
    RecordSelection selection;
    WhereOptions where;
    std::uint64_t limit = 0;  // 0 for none
    bool isJson = false;
};

void SayStoreIsEmpty() {
    TerminalPort terminal;
    Reporter(terminal, {}).Say("the store has no records; records add FILE adds those of a file");
}

Status RunStoreList(const ListOptions& options) {
    const std::optional<Database> database = OpenStoreToRead();
    Output output("-");
    std::uint64_t listed = 0;
    RecordFilter filter(options.where, kCharsetAuto);
    zorby::CommFormatFields fields;
    Item item;
    const auto isAskedFor = [&](const StoredRecord& record) {
        if (options.where.AsksForAll()) return true;
        ReadItem(record, fields, item);
        return item.kind == kItemRecord && filter.Takes(item.record);
    };
    const auto list = [&](const StoredRecord& record) {
        if (!isAskedFor(record)) return true;
        output.Write(options.isJson ? JsonLine(record) : ToText(record));
        return ++listed != options.limit;
    };
    if (database) RecordStore(*database).Walk(options.selection, list);
    output.Finish();
    const bool isSearch = options.selection.controlNumber || options.selection.titlePrefix ||
                          !options.where.AsksForAll();
    if (isSearch) return listed == 0 ? kStatusFindings : kStatusWell;
    if (listed == 0 && options.selection.after == 0) SayStoreIsEmpty();
    return kStatusWell;
}

}  // namespace

void DeclareRecordsList(Arguments& command) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    ListOptions& options = command.Runs(RunStoreList);
    RecordSelection& selection = options.selection;
    command.Option("--control-number", selection.controlNumber,
                   "Only records of this control number (001)");
    command.Option("--title", selection.titlePrefix,
                   "Only titles that begin so; case and diacritics don't count");
    DeclareWhere(command, options.where);
    command.Option("--after", selection.after, "Only IDs above this").Range(0, kMost);
    command.Option("--limit", options.limit, "At most so many; 0, as if not given, for all");
    command.Choice("--format", options.isJson, {{"text", false}, {"jsonl", true}},
                   "text, or jsonl for a program: an object a line");
}

}  // namespace quillory
