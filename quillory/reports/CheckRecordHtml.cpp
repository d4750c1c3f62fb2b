#include <quillory/coded/Material.h>
#include <quillory/reports/CheckRecordHtml.h>
#include <quillory/reports/HtmlText.h>
#include <quillory/reports/RecordScreen.h>

#include <cctype>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

std::string Cell(std::string_view kind, std::string_view html) {
    return "<td class=\"" + std::string(kind) + "\">" + std::string(html) + "</td>";
}

std::string SeverityName(const Remark& remark) {
    std::string name(SeverityText(remark.severity));
    name.front() = static_cast<char>(std::toupper(name.front()));
    return name;
}

// The folder shows where the pointer rests.
std::string FileCell(const std::string& path) {
    return "<td title=\"" + HtmlText(path) + "\">" +
           HtmlText(path.substr(path.find_last_of('/') + 1)) + "</td>";
}

// What the filters of the page look at.
std::string RowTag(const Remark& remark, const std::string& material, const std::string& id) {
    return "<tr data-severity=\"" + std::string(SeverityText(remark.severity)) + "\" data-rule=\"" +
           HtmlText(remark.rule->name) + "\" data-material=\"" + material + "\" data-field=\"" +
           HtmlText(PlaceText(Place::OfField(remark.place.Tag()))) + "\" data-record=\"" + id +
           "\">";
}

// The cells of a record's rows that are the same for each of its findings.
std::string RecordCells(const Item& item, const RecordSummary& summary, const std::string& id) {
    const std::string number = std::to_string(item.number);
    return Cell("number", "<a href=\"#" + id + "\">" + number + "</a>") +
           Cell("number", std::to_string(item.offset)) +
           Cell("id", HtmlText(summary.controlNumber)) + Cell("title", HtmlText(summary.title));
}

// Why the rule is there shows where the pointer rests.
std::string RemarkCells(const Remark& remark) {
    const Rule& rule = *remark.rule;
    return Cell(SeverityText(remark.severity), SeverityName(remark)) +
           "<td class=\"finding\" title=\"" + HtmlText(rule.why) + "\">" + HtmlText(rule.title) +
           "<small> " + HtmlText(RemarkText(remark)) + "</small></td>" +
           Cell("field", HtmlText(PlaceText(remark.place)));
}

std::string RemarkItem(const Remark& remark) {
    const std::string place = PlaceText(remark.place);
    return "<li class=\"" + std::string(SeverityText(remark.severity)) + "\">" +
           HtmlText((place.empty() ? "" : place + ": ") + RemarkText(remark)) + "</li>\n";
}

// A line without its end.
std::string LineHtml(std::string_view line) {
    line.remove_suffix(1);
    return HtmlText(line);
}

}  // namespace

CheckRecordHtml CheckRecordPrinter::Print(const CheckedRecord& record, const std::string& id) {
    const RecordSummary summary = summarizer_.Summarize(record.item.record);
    const std::string cells =
        RecordCells(record.item, summary, id) + FileCell(reporter_.File()) + "</tr>\n";
    const std::string material = HtmlText(MaterialText(record.item.record.leader));
    const std::string title = summary.title.empty() ? "(no title)" : summary.title;
    CheckRecordHtml html;
    html.section = "<section class=\"record\" id=\"" + id + "\"><h3>" + HtmlText(title) +
                   "</h3>\n<p class=\"note\">" + HtmlText(reporter_.PlaceOf(record.item)) +
                   " <a class=\"back\" href=\"#findings\">all findings</a></p>\n<ul>\n";
    for (const Remark& remark : record.remarks) {
        html.rows += RowTag(remark, material, id) + RemarkCells(remark) + cells;
        html.section += RemarkItem(remark);
    }
    html.section += "</ul>\n<pre>" + Fields(record) + "</pre></section>\n";
    return html;
}

std::string CheckRecordPrinter::Fields(const CheckedRecord& record) {
    std::set<std::pair<std::string_view, std::uint32_t>> marked;
    for (const Remark& remark : record.remarks) {
        marked.emplace(remark.place.Tag(), remark.place.occurrence);
    }
    Record shown = record.item.record;
    Losses unused;
    recoder_.Recode(shown, unused);
    std::string line;
    AppendLeader(record.item.record.leader, {}, line);
    std::string html = LineHtml(line) + '\n';
    std::map<std::string_view, std::uint32_t> occurrences;
    for (const zorby::CommFormatField& field : shown.fields) {
        line.clear();
        AppendField(field, {}, line);
        const bool isMarked = marked.contains({field.tag, ++occurrences[field.tag]});
        html += (isMarked ? "<mark>" + LineHtml(line) + "</mark>" : LineHtml(line)) + '\n';
    }
    return html;
}

}  // namespace quillory
