#include <quillory/reports/BarChart.h>
#include <quillory/reports/CheckChart.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

std::vector<Bar> Sorted(std::vector<Bar> bars) {
    std::ranges::stable_sort(bars, std::ranges::greater(), &Bar::Total);
    return bars;
}

std::string_view PluralOf(Severity severity) {
    if (severity == Severity::Error) return "errors";
    return severity == Severity::Warning ? "warnings" : "notes";
}

}  // namespace

std::string FindingsChart(const CheckTotals& totals) {
    std::vector<Bar> bars;
    bars.reserve(totals.rules.size());
    for (const auto& [id, count] : totals.rules) {
        const BarPart part{SeverityText(count.severity), PluralOf(count.severity), count.count};
        bars.push_back({std::string(count.rule->title), {part}});
    }
    return BarChart("Findings by rule", Sorted(std::move(bars)));
}

std::string MaterialsChart(const CheckTotals& totals) {
    std::vector<Bar> bars;
    for (const auto& [material, counts] : totals.materials) {
        bars.push_back({material,
                        {{"error", "records with errors", counts[kMustStay]},
                         {"warning", "records with warnings", counts[kMayGoWithWarnings]},
                         {"ok", "records without findings", counts[kMayGo]}}});
    }
    return BarChart("Records by material", Sorted(std::move(bars)));
}

}  // namespace quillory
