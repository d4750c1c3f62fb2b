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

}  // namespace

std::string FindingsChart(const CheckTotals& totals, const Policy& policy) {
    std::vector<Bar> bars;
    for (const auto& [code, count] : totals.findings) {
        const bool isError = policy.SeverityOf(code) == zorby::EST_Error;
        const BarPart part =
            isError ? BarPart{"error", "errors", count} : BarPart{"warning", "warnings", count};
        bars.push_back({KindText(code), {part}});
    }
    return BarChart("Findings by kind", Sorted(std::move(bars)));
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
