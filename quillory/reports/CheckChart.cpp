#include <quillory/reports/BarChart.h>
#include <quillory/reports/CheckChart.h>
#include <quillory/reports/DictionaryNames.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kMostBars = 20;

std::string_view PluralOf(Severity severity) {
    if (severity == Severity::Error) return "errors";
    return severity == Severity::Warning ? "warnings" : "notes";
}

BarPart PartOf(Severity severity, std::uint64_t count) {
    return {SeverityText(severity), PluralOf(severity), count};
}

// The longest of the bars. `what` names the others, which are counted.
std::string LongestBars(const std::string& name, std::vector<Bar> bars, std::string_view what) {
    std::ranges::stable_sort(bars, std::ranges::greater(), &Bar::Total);
    const std::size_t others = bars.size() - std::min(bars.size(), kMostBars);
    bars.resize(bars.size() - others);
    std::string chart = BarChart(name, bars);
    if (others == 0) return chart;
    return chart + "<p class=\"note\">" + std::to_string(others) + " other " + std::string(what) +
           " had fewer.</p>\n";
}

// "245 Title Statement", or the tag alone where the format has no such field.
std::string FieldLabel(const std::string& tag) {
    if (tag.empty()) return "whole record";
    const unsigned number = TagNumber(tag);
    const std::string name = number == kNoTag ? "" : FieldName(number, zorby::EDO_NameOnly);
    return name.empty() ? PlaceText(Place::OfField(tag)) : tag + " " + name;
}

}  // namespace

std::string FindingsChart(const CheckTotals& totals) {
    std::vector<Bar> bars;
    const std::vector<RuleCount> rules = totals.findings.Rules();
    bars.reserve(rules.size());
    for (const RuleCount& count : rules) {
        bars.push_back({std::string(count.rule->title), {PartOf(count.severity, count.count)}});
    }
    return LongestBars("Findings by rule", std::move(bars), "rules");
}

std::string FieldsChart(const CheckTotals& totals) {
    std::vector<Bar> bars;
    const auto fields = totals.findings.Fields();
    bars.reserve(fields.size());
    for (const auto& [tag, counts] : fields) {
        Bar bar{FieldLabel(tag), {}};
        for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
            bar.parts.push_back(PartOf(severity, counts[static_cast<std::size_t>(severity)]));
        }
        bars.push_back(std::move(bar));
    }
    return LongestBars("Findings by field", std::move(bars), "fields");
}

std::string MaterialsChart(const CheckTotals& totals) {
    std::vector<Bar> bars;
    for (const auto& [material, counts] : totals.Materials()) {
        bars.push_back({material,
                        {{"error", "records with errors", counts[kMustStay]},
                         {"warning", "records with warnings", counts[kMayGoWithWarnings]},
                         {"ok", "records without findings", counts[kMayGo]}}});
    }
    return LongestBars("Records by material", std::move(bars), "materials");
}

}  // namespace quillory
