#include <quillory/jobs/JobPort.h>
#include <quillory/reports/CheckSummary.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

constexpr std::size_t kRuleCountWidth = 8;
constexpr std::size_t kSeverityWidth = 9;
constexpr std::size_t kLeastNameWidth = 24;

std::string LinesOf(Severity severity, const std::vector<RuleCount>& rules) {
    const std::size_t width = Widest(rules, [](const RuleCount& row) { return row.rule->name; });
    std::string text;
    for (const RuleCount& row : rules) {
        if (row.severity != severity) continue;
        text += RightAligned(std::to_string(row.count), kRuleCountWidth) + "  " +
                Padded(std::string(SeverityText(severity)), kSeverityWidth) +
                Padded(std::string(row.rule->name), std::max(width, kLeastNameWidth) + 2) +
                std::string(row.rule->title) + '\n';
    }
    return text;
}

}  // namespace

std::string CheckSummary(const CheckTotals& totals) {
    std::string text =
        Counted(totals.records, "record") + " checked: " + std::to_string(totals.verdicts[kMayGo]) +
        " well or with notes alone, " + std::to_string(totals.verdicts[kMayGoWithWarnings]) +
        " with warnings, " + std::to_string(totals.verdicts[kMustStay]) + " with errors";
    if (totals.damaged > 0) text += "; " + std::to_string(totals.damaged) + " damaged";
    return text + '\n';
}

std::string CheckRuleLines(const CheckTotals& totals) {
    const std::vector<RuleCount> rules = totals.MostFrequentFirst();
    std::string text;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        text += LinesOf(severity, rules);
    }
    return text;
}

}  // namespace quillory
