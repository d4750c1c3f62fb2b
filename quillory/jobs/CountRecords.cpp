#include <quillory/faults/Errors.h>
#include <quillory/jobs/CountRecords.h>
#include <quillory/jobs/Library.h>

#include <algorithm>
#include <deque>
#include <memory>

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

std::vector<PlaceSet> PlacesOf(const CountOptions& options) {
    std::vector<PlaceSet> sets;
    for (const std::string& text : options.values) sets.push_back(PlacesOf(text));
    return sets;
}

class CountRun {
public:
    CountRun(const CountOptions& options, RecordCounts& counts, Reporter& reporter)
        : charset_(options.input.charset),
          sets_(PlacesOf(options)),
          counts_(counts),
          reporter_(reporter) {
        if (std::ranges::any_of(sets_, HasPositions)) counts.lists.emplace(LoadCodeLists());
        Prepare(counts);
    }

    ItemJob Job() {
        return {[this](const Item& item) {
                    if (SayDamage(item, reporter_)) damage_ = kStatusFindings;
                    Count(item, counts_);
                    return true;
                },
                [this](Reporter& own, Steps& steps) { return Share(own, steps); }};
    }

    // After the last record.
    void AddShares() {
        for (const RecordCounts& share : shares_) {
            counts_.fields.Add(share.fields);
            for (std::size_t i = 0; i < sets_.size(); ++i) counts_.values[i].Add(share.values[i]);
        }
    }

    Status Damage() const { return damage_; }

private:
    void Prepare(RecordCounts& counts) const {
        const CodeLists* lists = counts_.lists ? &*counts_.lists : nullptr;
        for (const PlaceSet& places : sets_) counts.values.emplace_back(places, charset_, lists);
    }

    std::unique_ptr<ItemWorker> Share(Reporter& own, Steps& steps) {
        RecordCounts& share = shares_.emplace_back();
        Prepare(share);
        return MakeWorker([this, &share, &own, &steps](const Item& item) {
            if (SayDamage(item, own)) steps.emplace_back([this] { damage_ = kStatusFindings; });
            Count(item, share);
        });
    }

    // Whether there is anything to be said.
    static bool SayDamage(const Item& item, Reporter& reporter) {
        const bool isDamaged = item.fault && !item.continues;
        if (isDamaged) reporter.SayFault(item);
        return isDamaged;
    }

    static void Count(const Item& item, RecordCounts& counts) {
        if (item.kind != kItemRecord) return;
        counts.fields.Add(item.record);
        for (ValueCounts& values : counts.values) values.Add(item.record);
    }

    Charset charset_;
    std::vector<PlaceSet> sets_;
    RecordCounts& counts_;
    Reporter& reporter_;
    std::deque<RecordCounts> shares_;  // what each worker counts
    Status damage_ = kStatusWell;
};

}  // namespace

Status CountRecords(const CountOptions& options, RecordCounts& counts, Reporter& reporter) {
    CountRun run(options, counts, reporter);
    const Status read = ReadFiles(options.input, reporter, run.Job());
    run.AddShares();
    return std::max(read, run.Damage());
}

}  // namespace quillory
