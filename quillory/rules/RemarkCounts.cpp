#include <quillory/rules/RemarkCounts.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillory {
namespace {

void AddTo(SeverityCounts& counts, const SeverityCounts& others) {
    for (std::size_t i = 0; i < counts.size(); ++i) counts[i] += others[i];
}

RuleId RuleIdOf(const RuleCount& count) {
    return count.rule->id;
}

std::string_view RuleNameOf(const RuleCount& count) {
    return count.rule->name;
}

}  // namespace

inline RuleCount& RemarkCounts::CountOf(std::size_t rule) {
    if (rule >= rules_.size()) rules_.resize(rule + 1);
    return rules_[rule];
}

inline SeverityCounts& RemarkCounts::CountsOf(const Place& place) {
    const unsigned number = place.Number();
    if (number == kNoTag) return CountsOfOther(place.Tag());
    if (fields_.empty()) fields_.resize(kTags);
    return fields_[number];
}

SeverityCounts& RemarkCounts::CountsOfOther(std::string_view tag) {
    const auto found = otherPlaces_.find(tag);
    return found != otherPlaces_.end() ? found->second : otherPlaces_[std::string(tag)];
}

std::uint64_t RemarkCounts::Count(const Rule& rule, Severity severity, const Place& place) {
    RuleCount& count = CountOf(static_cast<std::size_t>(rule.id));
    count.rule = &rule;
    count.severity = std::min(severity, count.severity);
    ++count.count;
    if (std::exchange(count.lastRecord, records_) != records_) ++count.records;
    ++CountsOf(place)[static_cast<std::size_t>(severity)];
    heaviest_ = std::min(severity, heaviest_.value_or(severity));
    return count.count;
}

void RemarkCounts::Add(const RemarkCounts& others) {
    for (const RuleCount& other : others.Rules()) {
        RuleCount& count = CountOf(static_cast<std::size_t>(other.rule->id));
        count.rule = other.rule;
        count.severity = std::min(other.severity, count.severity);
        count.count += other.count;
        count.records += other.records;
    }
    fields_.resize(std::max(fields_.size(), others.fields_.size()));
    for (std::size_t tag = 0; tag < others.fields_.size(); ++tag) {
        AddTo(fields_[tag], others.fields_[tag]);
    }
    for (const auto& [place, counts] : others.otherPlaces_) AddTo(otherPlaces_[place], counts);
}

// A report on several checks gives a library's own rules other numbers than each check.
std::vector<RuleCount> RemarkCounts::Rules() const {
    std::vector<RuleCount> counts;
    std::ranges::copy_if(rules_, std::back_inserter(counts),
                         [](const RuleCount& rule) { return rule.count > 0; });
    const auto own = std::ranges::lower_bound(counts, RuleId::Count, {}, RuleIdOf);
    std::ranges::sort(own, counts.end(), {}, RuleNameOf);
    return counts;
}

std::map<std::string, SeverityCounts> RemarkCounts::Fields() const {
    std::map<std::string, SeverityCounts> fields(otherPlaces_.begin(), otherPlaces_.end());
    for (unsigned tag = 0; tag < fields_.size(); ++tag) {
        const bool isCounted = fields_[tag] != SeverityCounts{};
        if (isCounted) fields[TagText(tag)] = fields_[tag];
    }
    return fields;
}

}  // namespace quillory
