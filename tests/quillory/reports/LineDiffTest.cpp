#include <quillory/reports/LineDiff.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace quillory {
namespace {

using Lines = std::vector<std::string>;

std::string Shown(const Lines& before, const Lines& after) {
    std::string text;
    for (const LineOfDiff& line : DiffOf(before, after)) {
        text += (line.isNew ? "+" : "-") + line.text;
    }
    return text;
}

TEST(LineDiff, HasOnlyTheLinesThatDiffer) {
    EXPECT_EQ(Shown({"a", "b", "c"}, {"a", "b", "c"}), "");
    EXPECT_EQ(Shown({"a", "b", "c"}, {"a", "x", "c"}), "-b+x");
    EXPECT_EQ(Shown({"a", "b"}, {"a", "b", "b"}), "+b");
    EXPECT_EQ(Shown({}, {"a"}), "+a");
    EXPECT_EQ(Shown({"a", "b", "c", "d"}, {"b", "c", "x", "d", "a"}), "-a+x+a");
}

// What is left of either text without the lines of the diff is the same.
TEST(LineDiff, LeavesWhatBothHave) {
    std::mt19937 random(20261122);
    const auto make = [&random] {
        Lines lines(random() % 9);
        for (std::string& line : lines) line = static_cast<char>('a' + random() % 4);
        return lines;
    };
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        Lines before = make();
        Lines after = make();
        for (const LineOfDiff& line : DiffOf(before, after)) {
            Lines& lines = line.isNew ? after : before;
            const auto found = std::find(lines.begin(), lines.end(), line.text);
            ASSERT_NE(found, lines.end());
            lines.erase(found);
        }
        std::sort(before.begin(), before.end());
        std::sort(after.begin(), after.end());
        EXPECT_EQ(before, after);
    }
}

// So many pairs of lines are not looked at one by one.
TEST(LineDiff, TakesTextsOfAnyLength) {
    Lines before;
    Lines after;
    for (int i = 0; i < 5000; ++i) {
        before.push_back("b" + std::to_string(i));
        after.push_back("a" + std::to_string(i));
    }
    EXPECT_EQ(DiffOf(before, after).size(), 10000U);
}

}  // namespace
}  // namespace quillory
