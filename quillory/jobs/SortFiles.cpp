#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/KeptRecords.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/Progress.h>
#include <quillory/jobs/SortFiles.h>
#include <quillory/sets/ExternalSort.h>
#include <quillory/sets/SortKey.h>

namespace quillory {
namespace {

SortOrder OrderOf(const SortOptions& options) {
    SortOrder order{{}, options.isNumeric, options.isReverse};
    for (const std::string& text : options.by) {
        for (KeyPlace& place : ParseKeyPlaces("--by", text)) order.places.push_back(place);
    }
    if (order.places.empty()) throw UsageError("--by says by which places to sort, as in 245a");
    return order;
}

void SayWithout(std::uint64_t without, const SortOptions& options, const Reporter& reporter) {
    if (without == 0 || reporter.Quiet()) return;
    reporter.Say(Counted(without, "record") + " without " +
                 (options.isNumeric ? "a number at " : "") + options.by.front() + ", at the end");
}

}  // namespace

Status SortFiles(const SortOptions& options, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.output.output);
    CheckNotAnInput(options.input.files, options.output.rejects);
    RecordSortKeys keys(OrderOf(options), options.input.charset);
    ExternalSort sorted(ParseByteSize("--memory", options.memory));
    KeptRecords records(reporter);
    std::uint64_t without = 0;
    const ItemSource source = [&](const auto& take) {
        std::string key;
        const Status read =
            records.Read(options.input, take, [&](const Item& item, std::string_view packed) {
                if (!keys.KeyOf(item.record, key)) ++without;
                sorted.Add(key, packed);
            });
        Progress progress(reporter);
        Item item;
        std::uint64_t done = 0;
        sorted.ForEach([&](std::string_view, std::string_view packed) {
            records.Unpack(packed, item);
            take(item);
            progress.Step(++done, sorted.Count());
        });
        records.Finish();
        return read;
    };
    const Status status = WriteItems(source, options.input.charset, options.output, reporter);
    SayWithout(without, options, reporter);
    return status;
}

}  // namespace quillory
