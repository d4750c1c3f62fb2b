#include <quillory/faults/Errors.h>
#include <quillory/jobs/CountRecords.h>
#include <quillory/jobs/Library.h>

#include <algorithm>

namespace quillory {
namespace {

PlaceSet PlacesOf(const std::string& text) {
    PlaceSetReading reading = ParsePlaceSet(text);
    if (reading.fault) throw UsageError("--values: " + CaretText(text, reading.fault));
    return std::move(reading.places);
}

bool HasPositions(const PlaceSet& places) {
    return std::ranges::any_of(
        places.patterns, [](const PlacePattern& pattern) { return pattern.place.HasPositions(); });
}

void Prepare(const CountOptions& options, RecordCounts& counts) {
    std::vector<PlaceSet> sets;
    for (const std::string& text : options.values) sets.push_back(PlacesOf(text));
    if (std::ranges::any_of(sets, HasPositions)) counts.lists.emplace(LoadCodeLists());
    for (PlaceSet& places : sets) {
        counts.values.emplace_back(std::move(places), options.input.charset,
                                   counts.lists ? &*counts.lists : nullptr);
    }
}

}  // namespace

Status CountRecords(const CountOptions& options, RecordCounts& counts, Reporter& reporter) {
    Prepare(options, counts);
    Status damage = kStatusWell;
    const Status read = ReadFiles(options.input, reporter, [&](const Item& item) {
        if (item.fault && !item.continues) {
            reporter.SayFault(item);
            damage = kStatusFindings;
        }
        if (item.kind != kItemRecord) return true;
        counts.fields.Add(item.record);
        for (ValueCounts& values : counts.values) values.Add(item.record);
        return true;
    });
    return std::max(read, damage);
}

}  // namespace quillory
