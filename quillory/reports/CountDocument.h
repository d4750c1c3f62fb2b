#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/CountRecords.h>
#include <quillory/text/JsonWriter.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What was counted, in UTF-8.
struct CountRow {
    std::string value;  // or a place: "245", "245 $a", "245/1 = 0"
    std::string name;   // what a code or a tag stands for; may be empty
    std::uint64_t records = 0;
    std::uint64_t count = 0;
};

struct CountTable {
    std::string of;  // "fields", "subfields", "indicators", or places: "008/35-37"
    std::vector<CountRow> rows;
    std::uint64_t moreRows = 0;            // left out at the end
    std::optional<std::uint64_t> without;  // records that have none of the values
};

struct CountDocument {
    std::uint64_t records = 0;
    std::uint64_t fields = 0;
    std::uint64_t subfields = 0;
    std::vector<CountTable> tables;
};

struct CountDocumentOptions {
    bool subfields = false;
    bool indicators = false;
    bool names = false;     // of tags and subfields, from the dictionary in force
    std::uint64_t top = 0;  // the most values of places; 0 for all
};

// Fields come if no values were counted, or if parts of them are asked for.
CountDocument MakeCountDocument(const RecordCounts& counts, const CountDocumentOptions& options);

std::string ToText(const CountDocument& document);
void ToJson(const CountDocument& document, JsonWriter& json);
// A line of names, then one for each row: table, value, name, records, count, between tabs.
std::string ToTsv(const CountDocument& document);
// A page that stands alone, with a chart for each table.
void WriteCountPage(const CountDocument& document, Output& output);

enum CountFormat : std::int32_t { kCountByName, kCountText, kCountTsv, kCountJson, kCountHtml };
std::vector<std::pair<std::string, CountFormat>> CountFormatNames();
// Writes the document in a format, which the name of the output tells if none is given.
void WriteCounts(const CountDocument& document, CountFormat format, const std::string& path);

}  // namespace quillory
