#include <quillory/coded/Material.h>
#include <quillory/jobs/CheckReport.h>

#include <algorithm>
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
    const std::string material = MaterialText(record.item.record.leader);
    ++materials[material][verdict];
}

void CheckTotals::Count(const Remark& remark) {
    RuleCount& rule = rules[remark.rule->id];
    rule.rule = remark.rule;
    rule.severity = remark.severity;
    ++rule.count;
    if (std::exchange(rule.lastRecord, records) != records) ++rule.records;
    const std::string_view tag = remark.place.Tag();
    auto field = fields.find(tag);
    if (field == fields.end()) field = fields.emplace(tag, SeverityCounts{}).first;
    ++field->second[static_cast<std::size_t>(remark.severity)];
}

std::vector<RuleCount> CheckTotals::MostFrequentFirst() const {
    std::vector<RuleCount> counts;
    counts.reserve(rules.size());
    for (const auto& [id, count] : rules) counts.push_back(count);
    std::ranges::stable_sort(counts, std::ranges::greater(), &RuleCount::count);
    return counts;
}

}  // namespace quillory
