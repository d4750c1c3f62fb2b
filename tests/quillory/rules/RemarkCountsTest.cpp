#include <quillory/rules/RemarkCounts.h>

#include <gtest/gtest.h>

#include <algorithm>
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

}  // namespace
}  // namespace quillory
