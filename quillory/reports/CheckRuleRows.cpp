#include <quillory/reports/CheckRuleRows.h>
#include <quillory/reports/HtmlText.h>

namespace quillory {
namespace {

std::string RuleRow(const RuleCount& count) {
    const std::string severity(SeverityText(count.severity));
    const std::string name = HtmlText(count.rule->name);
    return "<tr><td class=\"" + severity + "\">" + severity +
           "</td><td class=\"id\"><button data-rule=\"" + name + "\">" + name +
           "</button></td><td class=\"finding\">" + HtmlText(count.rule->title) +
           "</td><td class=\"number\">" + std::to_string(count.count) +
           "</td><td class=\"number\">" + std::to_string(count.records) + "</td><td>" +
           HtmlText(count.rule->why) + "</td></tr>\n";
}

}  // namespace

std::string CheckRuleRows(const CheckTotals& totals) {
    std::string rows;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        for (const RuleCount& count : totals.MostFrequentFirst()) {
            if (count.severity == severity) rows += RuleRow(count);
        }
    }
    return rows;
}

}  // namespace quillory
