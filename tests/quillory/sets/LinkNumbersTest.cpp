#include <quillory/sets/LinkNumbers.h>

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

// What becomes of a record, in two mergers: the second one has nothing more to do.
std::string Merged(const Lines& mine, const Lines& theirs, const std::string& which,
                   MergeMode mode = MergeMode::Add) {
    const PlaceSet places = ParsePlaceSet(which).places;
    TestRecord record(mine, '$');
    TestRecord other(theirs, '$');
    TestRecord again(theirs, '$');
    LinkNumbers first(places, mode);
    LinkNumbers second(places, mode);
    if (!first.FitInto(record.record, other.record)) return "not enough numbers";
    MergeFields(record.record, other.record, places, mode);
    EXPECT_TRUE(second.FitInto(record.record, again.record));
    EXPECT_FALSE(MergeFields(record.record, again.record, places, mode)) << which;
    return FieldsOf(record.record);
}

const Lines kTitle{"24510$6880-01$aT", "88010$6245-01/(N$aТ"};

TEST(LinkNumbers, PairsThatComeTakeFreeNumbers) {
    EXPECT_EQ(Merged(kTitle,
                     {"24510$6880-01$aOther", "7001 $6880-02$aN", "88010$6245-01/(N$aД",
                      "8801 $6700-02$aН"},
                     "700,880"),
              "24510$6880-01$aT\n7001 $6880-02$aN\n88010$6245-01/(N$aТ\n88010$6245-03/(N$aД\n"
              "8801 $6700-02$aН")
        << "half of a pair";
    EXPECT_EQ(Merged(kTitle, {"7001 $6880-01/$1$aN", "7001 $aM", "8801 $6700-01/$1$aН"}, "7XX,880"),
              "24510$6880-01$aT\n7001 $6880-02/$1$aN\n7001 $aM\n88010$6245-01/(N$aТ\n"
              "8801 $6700-02/$1$aН");
    EXPECT_EQ(Merged({"24510$aT"}, {"7001 $6880-07$aN", "8801 $6700-07$aН"}, "700,880"),
              "24510$aT\n7001 $6880-07$aN\n8801 $6700-07$aН");
}

TEST(LinkNumbers, PairsThatAreThereDoNotComeTwice) {
    EXPECT_EQ(Merged({"24510$6880-02$aT", "88010$6245-02/(N$aТ"}, kTitle, "245,880"),
              "24510$6880-02$aT\n88010$6245-02/(N$aТ");
    EXPECT_EQ(
        Merged({"7001 $6880-01$aN", "8801 $6700-01$aА", "7001 $6880-02$aN", "8801 $6700-02$aБ"},
               {"7001 $6880-01$aN", "8801 $6700-01$aБ", "7001 $6880-02$aN", "8801 $6700-02$aВ"},
               "700,880"),
        "7001 $6880-01$aN\n8801 $6700-01$aА\n7001 $6880-02$aN\n7001 $6880-03$aN\n"
        "8801 $6700-02$aБ\n8801 $6700-03$aВ")
        << "names that are spelt alike only in one script";
}

TEST(LinkNumbers, HalvesFindEachOther) {
    EXPECT_EQ(Merged({"24510$6880-01$aT"}, kTitle, "880"), "24510$6880-01$aT\n88010$6245-01/(N$aТ");
    EXPECT_EQ(Merged({"24510$6880-01$aT"}, kTitle, "245,880"),
              "24510$6880-01$aT\n88010$6245-01/(N$aТ");
    EXPECT_EQ(Merged({"7001 $6880-01$aN", "24510$6880-03$aT"}, kTitle, "245,880"),
              "7001 $6880-01$aN\n24510$6880-03$aT\n88010$6245-03/(N$aТ")
        << "the half that is there has another number";
    EXPECT_EQ(Merged({"7001 $6880-01$aN"}, kTitle, "880"), "7001 $6880-01$aN\n88010$6245-02/(N$aТ")
        << "it waits for another tag";
    EXPECT_EQ(Merged(kTitle, {"24510$6880-01$aBetter"}, "245", MergeMode::Replace),
              "24510$6880-01$aBetter\n88010$6245-01/(N$aТ");
}

TEST(LinkNumbers, ReplacedPairsGiveTheirNumbersAway) {
    EXPECT_EQ(
        Merged({"24510$6880-01$aT", "7001 $6880-02$aN", "88010$6245-01$aТ", "8801 $6700-02$aН"},
               {"24510$6880-01$aU", "88010$6245-01$aУ"}, "245,880", MergeMode::Replace),
        "24510$6880-01$aU\n7001 $6880-02$aN\n88010$6245-01$aУ");
}

TEST(LinkNumbers, WhatIsNoLinkStays) {
    for (const char* field : {"8801 $6700-00$aН", "8801 $6700$aН", "8801 $6700-1$aН",
                              "7001 $6700-01$aN", "8801 $aН", "5008 $aNote", "8801 $6880-01$aН"}) {
        EXPECT_EQ(Merged(kTitle, {field}, "5XX,700,880").find(field) == std::string::npos, false)
            << field;
    }
}

// Two fields, each linked to the other.
void AddPair(Lines& lines, const std::string& tag, int number, const std::string& text) {
    const std::string rest = (number < 10 ? "-0" : "-") + std::to_string(number) + "$a" + text;
    lines.push_back(tag + "  $6880" + rest);
    lines.push_back("880  $6" + tag + rest);
}

TEST(LinkNumbers, ThereAreNinetyNine) {
    const auto pairs = [](int count, const std::string& text) {
        Lines lines;
        for (int i = 1; i <= count; ++i) {
            AddPair(lines, "500", i, text + std::to_string(i));
        }
        return lines;
    };
    EXPECT_NE(Merged(pairs(60, "a"), pairs(39, "b"), "500,880").find("880-99$ab39"),
              std::string::npos);
    EXPECT_EQ(Merged(pairs(60, "a"), pairs(40, "b"), "500,880"), "not enough numbers");
}

// However pairs are numbered, they are pairs afterwards.
TEST(LinkNumbers, NoTwoPairsShareANumber) {
    std::mt19937 random(6);
    const auto pairs = [&random](const std::string& text) {
        Lines lines;
        std::set<int> numbers;
        for (auto left = random() % 6; left > 0; --left) {
            numbers.insert(1 + static_cast<int>(random() % 12));
        }
        for (const int number : numbers) {
            AddPair(lines, "700", number, text + std::to_string(random() % 4));
        }
        return lines;
    };
    for (int round = 0; round < 2'000; ++round) {
        const Lines mine = pairs("m");
        const Lines theirs = pairs(round % 3 == 0 ? "m" : "t");
        const std::string text = Merged(mine, theirs, "700,880");
        SCOPED_TRACE(text);
        std::multiset<std::string> halves;
        for (const std::string& line : Divided(text)) {
            halves.insert(line.substr(line.find('-') + 1, 2) + line.substr(line.find("$a")));
        }
        std::set<std::string> numbers;
        for (const std::string& half : std::set(halves.begin(), halves.end())) {
            EXPECT_EQ(halves.count(half), 2U) << half;
            EXPECT_TRUE(numbers.insert(half.substr(0, 2)).second) << half;
        }
    }
}

}  // namespace
}  // namespace quillory
