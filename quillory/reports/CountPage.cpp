#include <quillory/reports/BarChart.h>
#include <quillory/reports/CheckPage.h>
#include <quillory/reports/CountDocument.h>
#include <quillory/reports/HtmlText.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillory {
namespace {

constexpr std::size_t kMostCountBars = 30;

std::string PlainTile(std::uint64_t count, std::string_view text) {
    return "<li><b>" + std::to_string(count) + "</b>" + std::string(text) + "</li>\n";
}

std::string CountTiles(const CountDocument& document) {
    return PlainTile(document.records, "records") + PlainTile(document.fields, "fields") +
           PlainTile(document.subfields, "subfields");
}

std::string LabelOf(const CountRow& row) {
    return row.name.empty() ? row.value : row.value + " " + row.name;
}

// The most frequent rows.
std::string ChartOf(const CountTable& table) {
    std::vector<CountRow> rows = table.rows;
    std::ranges::stable_sort(rows, std::ranges::greater(), &CountRow::count);
    rows.resize(std::min(rows.size(), kMostCountBars));
    std::vector<Bar> bars;
    bars.reserve(rows.size());
    for (const CountRow& row : rows) bars.push_back({LabelOf(row), {{"ok", "count", row.count}}});
    return BarChart(table.of, bars);
}

std::string RowHtml(const CountRow& row) {
    return "<tr><td>" + HtmlText(row.value) + "</td><td>" + HtmlText(row.name) +
           "</td><td class=\"number\">" + std::to_string(row.records) +
           "</td><td class=\"number\">" + std::to_string(row.count) + "</td></tr>\n";
}

void WriteTable(const CountTable& table, Output& output) {
    output.Write("<h2>" + HtmlText(table.of) + "</h2>\n<div class=\"charts\">\n<div>\n");
    output.Write(ChartOf(table));
    output.Write("</div>\n<div class=\"scroll\"><table><thead><tr><th>" +
                 std::string(table.without ? "Value" : "Place") +
                 "</th><th>Name</th><th>Records</th><th>Count</th></tr></thead><tbody>\n");
    for (const CountRow& row : table.rows) output.Write(RowHtml(row));
    output.Write("</tbody></table></div>\n</div>\n");
    std::string note;
    if (table.moreRows != 0) note += "and " + Counted(table.moreRows, "other value");
    if (table.without.value_or(0) != 0) {
        note += (note.empty() ? "" : "; ") + Counted(*table.without, "record") + " without";
    }
    if (!note.empty()) output.Write("<p class=\"note\">" + note + "</p>\n");
}

struct CountFormatRow {
    CountFormat format;
    std::string_view name;
    std::string_view ending;  // of the names of outputs, also before ".gz"
};

// The first is that of an output with any other name.
constexpr std::array<CountFormatRow, 4> kCountFormats{{
    {kCountText, "text", ""},
    {kCountTsv, "tsv", ".tsv"},
    {kCountJson, "json", ".json"},
    {kCountHtml, "html", ".html"},
}};

CountFormat FormatOfName(std::string_view path) {
    if (path.ends_with(".gz")) path.remove_suffix(3);
    const auto row = std::ranges::find_if(kCountFormats, [path](const CountFormatRow& known) {
        return !known.ending.empty() && path.ends_with(known.ending);
    });
    return row == kCountFormats.end() ? kCountText : row->format;
}

}  // namespace

void WriteCountPage(const CountDocument& document, Output& output) {
    const PageSlots slots = {
        {"style", [&] { output.Write(kCheckStyle); }},
        {"tiles", [&] { output.Write(CountTiles(document)); }},
        {"tables",
         [&] {
             for (const CountTable& table : document.tables) WriteTable(table, output);
         }},
    };
    WritePagePart(kCountPage, slots, output);
}

std::vector<std::pair<std::string, CountFormat>> CountFormatNames() {
    std::vector<std::pair<std::string, CountFormat>> names;
    names.reserve(kCountFormats.size());
    for (const CountFormatRow& row : kCountFormats) names.emplace_back(row.name, row.format);
    return names;
}

void WriteCounts(const CountDocument& document, CountFormat format, const std::string& path) {
    if (format == kCountByName) format = FormatOfName(path);
    Output output(path);
    switch (format) {
        case kCountHtml:
            WriteCountPage(document, output);
            break;
        case kCountJson:
            output.Write(JsonText(document));
            break;
        case kCountTsv:
            output.Write(ToTsv(document));
            break;
        default:
            output.Write(ToText(document));
    }
    output.Finish();
}

}  // namespace quillory
