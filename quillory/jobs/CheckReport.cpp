#include <quillory/coded/Material.h>
#include <quillory/jobs/CheckReport.h>

#include <algorithm>

namespace quillory {

TypeAndLevel TypeAndLevelOf(const Record& record) {
    constexpr std::size_t kType = 6;
    constexpr std::size_t kLevel = 7;
    return {record.leader[kType], record.leader[kLevel]};
}

Verdict CheckedRecord::GetVerdict() const {
    if (heaviest == Severity::Error) return kMustStay;
    return heaviest == Severity::Warning ? kMayGoWithWarnings : kMayGo;
}

void CheckTotals::Count(const CheckedRecord& record) {
    ++records;
    const auto verdict = static_cast<std::size_t>(record.GetVerdict());
    ++verdicts[verdict];
    ++CountsOfMaterial(record)[verdict];
}

VerdictCounts& CheckTotals::CountsOfMaterial(const CheckedRecord& record) {
    if (record.words != nullptr) return namedMaterials_[record.words->material];
    return materials_[record.typeAndLevel ? *record.typeAndLevel
                                          : TypeAndLevelOf(record.item.record)];
}

std::vector<RuleCount> CheckTotals::MostFrequentFirst() const {
    std::vector<RuleCount> counts = findings.Rules();
    std::ranges::stable_sort(counts, std::ranges::greater(), &RuleCount::count);
    return counts;
}

std::map<std::string, VerdictCounts> CheckTotals::Materials() const {
    std::map<std::string, VerdictCounts> materials = namedMaterials_;
    for (const auto& [typeAndLevel, counts] : materials_) {
        const std::string leader = std::string(6, ' ') + typeAndLevel.first + typeAndLevel.second;
        VerdictCounts& all = materials[MaterialText(leader)];
        for (std::size_t i = 0; i < all.size(); ++i) all[i] += counts[i];
    }
    return materials;
}

}  // namespace quillory
