#include <quillory/reports/CheckRecordHtml.h>
#include <quillory/reports/HtmlText.h>

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
std::string RecordCells(const Item& item, const RecordWords& words, const std::string& id) {
    const std::string number = std::to_string(item.number);
    return Cell("number", "<a href=\"#" + id + "\">" + number + "</a>") +
           Cell("number", std::to_string(item.offset)) + Cell("id", HtmlText(words.controlNumber)) +
           Cell("title", HtmlText(words.title));
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

// Each field with findings is marked.
std::string FieldsHtml(const CheckedRecord& record, const RecordWords& words) {
    if (words.lines.empty()) {
        return "<p class=\"note\">The results of the check lack the fields of this record; "
               "<code>check --rows 0</code> gives those of all records.</p>\n";
    }
    std::set<std::pair<std::string_view, std::uint32_t>> marked;
    for (const Remark& remark : record.remarks) {
        marked.emplace(remark.place.Tag(), remark.place.occurrence);
    }
    std::string html = "<pre>";
    std::map<std::string_view, std::uint32_t> occurrences;
    for (const RecordWords::Line& line : words.lines) {
        const bool isMarked =
            !line.tag.empty() && marked.contains({line.tag, ++occurrences[line.tag]});
        const std::string text = HtmlText(line.text);
        html += (isMarked ? "<mark>" + text + "</mark>" : text) + '\n';
    }
    return html + "</pre>";
}

}  // namespace

CheckRecordHtml CheckRecordPrinter::Print(const CheckedRecord& record, const std::string& id) {
    const RecordWords& words = wording_.Of(record, true);
    const std::string cells =
        RecordCells(record.item, words, id) + FileCell(reporter_.File()) + "</tr>\n";
    const std::string material = HtmlText(words.material);
    const std::string title = words.title.empty() ? "(no title)" : words.title;
    CheckRecordHtml html;
    html.section = "<section class=\"record\" id=\"" + id + "\"><h3>" + HtmlText(title) +
                   "</h3>\n<p class=\"note\">" + HtmlText(reporter_.PlaceOf(record.item)) +
                   " <a class=\"back\" href=\"#findings\">all findings</a></p>\n<ul>\n";
    for (const Remark& remark : record.remarks) {
        html.rows += RowTag(remark, material, id) + RemarkCells(remark) + cells;
        html.section += RemarkItem(remark);
    }
    html.section += "</ul>\n" + FieldsHtml(record, words) + "</section>\n";
    return html;
}

}  // namespace quillory
