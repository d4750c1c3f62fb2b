#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/ExtractFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/queries/Values.h>
#include <quillory/sets/KeyPlaces.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace quillory {
namespace {

// "245a", as people write places.
std::string NameOf(const PlacePattern& pattern) {
    constexpr std::string_view kBeforeCode = " $";
    std::string name = PlacePatternText(pattern);
    const auto at = name.find(kBeforeCode);
    return at == name.npos ? name : name.erase(at, kBeforeCode.size());
}

// A set of each of the places.
std::vector<PlaceSet> Divided(const PlaceSet& places) {
    std::vector<PlaceSet> columns;
    for (const PlacePattern& pattern : places.patterns) columns.push_back({{pattern}});
    return columns;
}

// Several subfields of one field, where a place names them together, are one value.
void AddValue(const PlacePattern& pattern, bool isOfLastField, std::string_view value,
              std::vector<std::string>& values) {
    if (pattern.codes.size() > 1 && isOfLastField) {
        values.back().append(" ").append(value);
    } else {
        values.emplace_back(value);
    }
}

// Takes the values of the columns out of one record after the other.
class ValueTaker {
public:
    ValueTaker(const std::vector<PlaceSet>& columns, Charset charset)
        : columns_(columns), reader_(charset) {}

    TableValues Take(const Record& record) {
        TableValues values(columns_.size());
        hasReplaced_ = false;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            TakeColumn(record, columns_[i], values[i]);
        }
        return values;
    }
    // Whether the values of the last record had bytes that are no character.
    bool HasReplaced() const { return hasReplaced_; }

private:
    void TakeColumn(const Record& record, const PlaceSet& column,
                    std::vector<std::string>& values) {
        Place field;
        reader_.ForEach(record, column, [&](const Place& place, std::string_view value) {
            const bool isOfLastField = !values.empty() && place.Field() == field;
            AddValue(column.patterns.front(), isOfLastField, value, values);
            field = place.Field();
        });
        hasReplaced_ = hasReplaced_ || reader_.HasReplaced();
    }

    const std::vector<PlaceSet>& columns_;
    ValueReader reader_;
    bool hasReplaced_ = false;
};

TableValues TakeValues(const Item& item, ValueTaker& taker, Reporter& reporter) {
    TableValues values = taker.Take(item.record);
    if (taker.HasReplaced()) reporter.Say(item, {FaultCode::kValueReplaced});
    return values;
}

// Hands the values of records to a table, and keeps the rest.
class ExtractRun {
public:
    ExtractRun(const ExtractOptions& options, const std::vector<PlaceSet>& columns,
               ValueTable& table, Reporter& reporter)
        : columns_(columns),
          charset_(options.input.charset),
          table_(table),
          reporter_(reporter),
          damage_(options.rejects, reporter),
          taker_(columns, charset_) {}

    ItemJob Job() {
        return {[this](const Item& item) {
                    if (damage_.Take(item)) {
                        table_.TakeRecord(TakeValues(item, taker_, reporter_));
                        isSound_ = isSound_ && !taker_.HasReplaced();
                    }
                    return true;
                },
                [this](Reporter& own, Steps& steps) {
                    return std::make_unique<Worker>(*this, own, steps);
                }};
    }

    void Complete() {
        damage_.Complete();
        table_.Finish();
    }

    Status FinishDamage() {
        damage_.Finish();
        return std::max(damage_.Result(), isSound_ ? kStatusWell : kStatusFindings);
    }

private:
    // Values of records that follow one another go into the table in one step.
    class Worker : public ItemWorker {
    public:
        Worker(ExtractRun& run, Reporter& own, Steps& steps)
            : run_(run), own_(own), steps_(steps), taker_(run.columns_, run.charset_) {}

        void Take(Item& item) override {
            if (item.kind != kItemRecord || item.fault) TakeDamage(item);
            if (item.kind != kItemRecord) return;
            rows_.push_back(TakeValues(item, taker_, own_));
            isSound_ = isSound_ && !taker_.HasReplaced();
        }
        void EndBatch() override {
            if (rows_.empty()) return;
            steps_.emplace_back([&run = run_, rows = std::exchange(rows_, {}), isSound = isSound_] {
                for (const TableValues& values : rows) run.table_.TakeRecord(values);
                run.isSound_ = run.isSound_ && isSound;
            });
        }

    private:
        void TakeDamage(const Item& item) {
            EndBatch();
            if (!DamageKeeper::Say(item, own_)) return;
            steps_.emplace_back([&run = run_, &item] { run.damage_.Keep(item); });
        }

        ExtractRun& run_;
        Reporter& own_;
        Steps& steps_;
        ValueTaker taker_;
        std::vector<TableValues> rows_;
        bool isSound_ = true;  // no record so far had bytes that are no character
    };

    const std::vector<PlaceSet>& columns_;
    Charset charset_;
    ValueTable& table_;
    Reporter& reporter_;
    DamageKeeper damage_;
    ValueTaker taker_;
    bool isSound_ = true;
};

}  // namespace

Status ExtractFiles(const ExtractOptions& options, ValueTable& table, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.rejects);
    const PlaceSet places = ParsePlaces("--fields", options.fields);
    const std::vector<PlaceSet> columns = Divided(places);
    ExtractRun run(options, columns, table, reporter);
    TableColumns names;
    for (const PlacePattern& pattern : places.patterns) names.push_back(NameOf(pattern));
    table.Begin(names);
    Status read = kStatusWell;
    try {
        read = ReadFiles(options.input, reporter, run.Job());
        run.Complete();
    } catch (const ClosedPipe&) {  // whoever reads has seen enough
    }
    return std::max(read, run.FinishDamage());
}

}  // namespace quillory
