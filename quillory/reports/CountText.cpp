#include <quillory/reports/CountDocument.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>
#include <string_view>

namespace quillory {
namespace {

constexpr std::size_t kWidestCounted = 60;
constexpr std::size_t kCountWidth = 9;

// Blanks of coded values are seen as "#".
std::string ValueShown(const CountTable& table, const CountRow& row) {
    std::string value = Visible(row.value);
    if (table.of.find('/') != table.of.npos) std::ranges::replace(value, ' ', '#');
    return value.empty() ? "(empty)" : value;
}

std::string TableText(const CountTable& table) {
    const auto shown = [&table](const CountRow& row) { return ValueShown(table, row); };
    const std::size_t width = std::clamp<std::size_t>(Widest(table.rows, shown), 5, kWidestCounted);
    std::string text = "\n" + Padded(table.of, width) + RightAligned("records", kCountWidth) +
                       RightAligned("count", kCountWidth) + "\n";
    for (const CountRow& row : table.rows) {
        text += Padded(shown(row), width) + RightAligned(std::to_string(row.records), kCountWidth) +
                RightAligned(std::to_string(row.count), kCountWidth);
        text += (row.name.empty() ? "" : "  " + row.name) + "\n";
    }
    if (table.moreRows != 0) text += "and " + Counted(table.moreRows, "other value") + "\n";
    if (table.without.value_or(0) != 0) text += Counted(*table.without, "record") + " without\n";
    return text;
}

// A cell holds no tab and no line end.
std::string TsvCell(std::string_view text) {
    std::string cell(text);
    std::ranges::replace_if(
        cell, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return cell;
}

}  // namespace

std::string ToText(const CountDocument& document) {
    std::string text = Counted(document.records, "record") + ", " +
                       Counted(document.fields, "field") + ", " +
                       Counted(document.subfields, "subfield") + "\n";
    for (const CountTable& table : document.tables) text += TableText(table);
    return text;
}

std::string ToTsv(const CountDocument& document) {
    std::string text = "table\tvalue\tname\trecords\tcount\n";
    for (const CountTable& table : document.tables) {
        for (const CountRow& row : table.rows) {
            text += TsvCell(table.of) + "\t" + TsvCell(row.value) + "\t" + TsvCell(row.name) +
                    "\t" + std::to_string(row.records) + "\t" + std::to_string(row.count) + "\n";
        }
    }
    return text;
}

}  // namespace quillory
