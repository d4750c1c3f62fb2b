#include <quillory/reports/CountDocument.h>
#include <quillory/reports/DictionaryNames.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <algorithm>

namespace quillory {
namespace {

zorby::EDISPLAYOPTIONS Display() {
    return static_cast<zorby::EDISPLAYOPTIONS>(
        zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
}

std::string NameOfTag(const std::string& tag, bool names) {
    const unsigned number = TagNumber(tag);
    return names && number != kNoTag ? FieldName(number, Display()) : std::string();
}

std::string NameOfCode(const std::string& tag, char code, bool names) {
    const unsigned number = TagNumber(tag);
    return names && number != kNoTag ? SubfieldName(number, code, Display()) : std::string();
}

CountTable FieldTable(const FieldCounts& counts, bool names) {
    CountTable table{"fields", {}, 0, {}};
    counts.ForEachTag([&](const std::string& tag, const Tally& tally) {
        table.rows.push_back(
            {PlaceText(Place::OfField(tag)), NameOfTag(tag, names), tally.records, tally.count});
    });
    return table;
}

CountTable SubfieldTable(const FieldCounts& counts, bool names) {
    CountTable table{"subfields", {}, 0, {}};
    counts.ForEachCode([&](const std::string& tag, char code, const Tally& tally) {
        table.rows.push_back({PlaceText(Place::OfField(tag).Subfield(code)),
                              NameOfCode(tag, code, names), tally.records, tally.count});
    });
    return table;
}

CountTable IndicatorTable(const FieldCounts& counts) {
    CountTable table{"indicators", {}, 0, {}};
    counts.ForEachIndicator([&](const std::string& tag, int which, char byte, const Tally& tally) {
        const std::string shown = byte == ' ' ? "#" : Printable({&byte, 1});
        table.rows.push_back({PlaceText(Place::OfField(tag).Indicator(which)) + " = " + shown,
                              {},
                              tally.records,
                              tally.count});
    });
    return table;
}

CountTable ValueTable(const ValueCounts& counts, std::uint64_t top) {
    CountTable table{PlaceSetText(counts.Places()), {}, 0, counts.RecordsWithout()};
    auto rows = counts.Rows();
    if (top != 0 && rows.size() > top) {
        table.moreRows = rows.size() - top;
        rows.resize(top);
    }
    for (auto& [value, name, tally] : rows) {
        table.rows.push_back({std::move(value), std::move(name), tally.records, tally.count});
    }
    return table;
}

void RowToJson(const CountRow& row, JsonWriter& json) {
    json.BeginObject();
    json.Member("value", row.value);
    json.MemberIfAny("name", row.name);
    json.Member("records", row.records);
    json.Member("count", row.count);
    json.EndObject();
}

void TableToJson(const CountTable& table, JsonWriter& json) {
    json.BeginObject();
    json.Member("of", table.of);
    json.MemberIfAny("records_without", table.without);
    if (table.moreRows != 0) json.Member("rows_left_out", table.moreRows);
    json.Name("rows");
    json.BeginArray();
    for (const CountRow& row : table.rows) RowToJson(row, json);
    json.EndArray();
    json.EndObject();
}

}  // namespace

CountDocument MakeCountDocument(const RecordCounts& counts, const CountDocumentOptions& options) {
    const FieldCounts& fields = counts.fields;
    CountDocument document{fields.Records(), fields.Fields(), fields.Subfields(), {}};
    auto& tables = document.tables;
    if (counts.values.empty()) tables.push_back(FieldTable(fields, options.names));
    if (options.subfields) tables.push_back(SubfieldTable(fields, options.names));
    if (options.indicators) tables.push_back(IndicatorTable(fields));
    for (const ValueCounts& values : counts.values) {
        tables.push_back(ValueTable(values, options.top));
    }
    return document;
}

void ToJson(const CountDocument& document, JsonWriter& json) {
    json.BeginObject();
    json.Member("records", document.records);
    json.Member("fields", document.fields);
    json.Member("subfields", document.subfields);
    json.Name("tables");
    json.BeginArray();
    for (const CountTable& table : document.tables) TableToJson(table, json);
    json.EndArray();
    json.EndObject();
}

}  // namespace quillory
