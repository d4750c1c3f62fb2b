#include <quillory/rules/RemarkCounts.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

RemarkCounts CountsOf(const std::vector<Severity>& severities) {
    RemarkCounts counts;
    counts.BeginRecord();
    for (const Severity severity : severities) {
        counts.Count(RuleOf(RuleId::IsbnInvalid), severity, Place::OfRecord());
    }
    return counts;
}

TEST(RemarkCounts, TheHeaviestWeightOfARuleIsThatOfAll) {
    std::vector<Severity> severities = {Severity::Error, Severity::Warning, Severity::Note};
    do {
        SCOPED_TRACE(::testing::PrintToString(severities));
        EXPECT_EQ(CountsOf(severities).Rules().front().severity, Severity::Error);
        RemarkCounts sum;
        for (const Severity severity : severities) sum.Add(CountsOf({severity}));
        EXPECT_EQ(sum.Rules().front().severity, Severity::Error);
        EXPECT_EQ(sum.Rules().front().count, 3U);
    } while (std::ranges::next_permutation(severities).found);
    EXPECT_EQ(CountsOf({Severity::Note, Severity::Warning}).Rules().front().severity,
              Severity::Warning);
}

TEST(RemarkCounts, OwnRulesComeByNameAfterThoseOfTheTable) {
    std::vector<Rule> own(3);
    constexpr std::array<std::string_view, 3> kNames = {"b", "c", "a"};
    for (std::size_t i = 0; i < own.size(); ++i) {
        own[i].id = static_cast<RuleId>(kRules + i);
        own[i].name = kNames[i];
    }
    RemarkCounts counts;
    counts.BeginRecord();
    for (const Rule& rule : own) counts.Count(rule, Severity::Note, Place::OfRecord());
    counts.Count(RuleOf(RuleId::UrlMalformed), Severity::Note, Place::OfRecord());
    counts.Count(RuleOf(RuleId::IsbnInvalid), Severity::Note, Place::OfRecord());
    std::vector<std::string_view> names;
    for (const RuleCount& count : counts.Rules()) names.push_back(count.rule->name);
    EXPECT_EQ(names,
              (std::vector<std::string_view>{"isbn-invalid", "url-malformed", "a", "b", "c"}));
}

}  // namespace
}  // namespace quillory
