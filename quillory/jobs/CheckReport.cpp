#include <quillory/coded/Material.h>
#include <quillory/jobs/CheckReport.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillory {

Verdict CheckedRecord::GetVerdict() const {
    Verdict verdict = kMayGo;
    for (const Remark& remark : remarks) {
        if (remark.severity == Severity::Error) return kMustStay;
        if (remark.severity == Severity::Warning) verdict = kMayGoWithWarnings;
    }
    return verdict;
}

void CheckTotals::Count(const CheckedRecord& record) {
    ++records;
    const auto verdict = static_cast<std::size_t>(record.GetVerdict());
    ++verdicts[verdict];
    for (const Remark& remark : record.remarks) Count(remark);
    ++CountsOfMaterial(record)[verdict];
}

VerdictCounts& CheckTotals::CountsOfMaterial(const CheckedRecord& record) {
    constexpr std::size_t kType = 6;
    constexpr std::size_t kLevel = 7;
    if (record.words != nullptr) return namedMaterials_[record.words->material];
    const std::string_view leader = record.item.record.leader;
    return materials_[{leader[kType], leader[kLevel]}];
}

void CheckTotals::Count(const Remark& remark) {
    const auto number = static_cast<std::size_t>(remark.rule->id);
    if (number >= rules_.size()) rules_.resize(number + 1);
    RuleCount& rule = rules_[number];
    rule.rule = remark.rule;
    rule.severity = remark.severity;
    ++rule.count;
    if (std::exchange(rule.lastRecord, records) != records) ++rule.records;
    ++CountsOf(remark.place)[static_cast<std::size_t>(remark.severity)];
}

SeverityCounts& CheckTotals::CountsOf(const Place& place) {
    const unsigned number = place.Number();
    if (number == kNoTag) {
        const auto found = otherPlaces_.find(place.Tag());
        return found != otherPlaces_.end() ? found->second : otherPlaces_[std::string(place.Tag())];
    }
    if (fields_.empty()) fields_.resize(kTags);
    return fields_[number];
}

std::vector<RuleCount> CheckTotals::Rules() const {
    std::vector<RuleCount> counts;
    std::ranges::copy_if(rules_, std::back_inserter(counts),
                         [](const RuleCount& rule) { return rule.count > 0; });
    return counts;
}

std::vector<RuleCount> CheckTotals::MostFrequentFirst() const {
    std::vector<RuleCount> counts = Rules();
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

std::map<std::string, SeverityCounts> CheckTotals::Fields() const {
    std::map<std::string, SeverityCounts> fields(otherPlaces_.begin(), otherPlaces_.end());
    for (unsigned tag = 0; tag < fields_.size(); ++tag) {
        const bool isCounted = fields_[tag] != SeverityCounts{};
        if (isCounted) fields[TagText(tag)] = fields_[tag];
    }
    return fields;
}

}  // namespace quillory
