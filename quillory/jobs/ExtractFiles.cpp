#include <quillory/jobs/DamageKeeper.h>
#include <quillory/jobs/ExtractFiles.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/queries/Values.h>
#include <quillory/sets/KeyPlaces.h>

#include <algorithm>

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

void TakeValues(const Record& record, const std::vector<PlaceSet>& columns, ValueReader& reader,
                TableValues& values) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        values[i].clear();
        Place field;
        reader.ForEach(record, columns[i], [&](const Place& place, std::string_view value) {
            const bool isOfLastField = !values[i].empty() && place.Field() == field;
            AddValue(columns[i].patterns.front(), isOfLastField, value, values[i]);
            field = place.Field();
        });
    }
}

}  // namespace

Status ExtractFiles(const ExtractOptions& options, ValueTable& table, Reporter& reporter) {
    CheckNotAnInput(options.input.files, options.rejects);
    const PlaceSet places = ParsePlaces("--fields", options.fields);
    const std::vector<PlaceSet> columns = Divided(places);
    ValueReader reader(options.input.charset);
    TableValues values(columns.size());
    DamageKeeper damage(options.rejects, reporter);
    TableColumns names;
    for (const PlacePattern& pattern : places.patterns) names.push_back(NameOf(pattern));
    table.Begin(names);
    Status read = kStatusWell;
    try {
        read = ReadFiles(options.input, reporter, [&](Item& item) {
            if (damage.Take(item)) {
                TakeValues(item.record, columns, reader, values);
                table.TakeRecord(values);
            }
            return true;
        });
        damage.Complete();
        table.Finish();
    } catch (const ClosedPipe&) {  // whoever reads has seen enough
    }
    damage.Finish();
    return std::max(read, damage.Result());
}

}  // namespace quillory
