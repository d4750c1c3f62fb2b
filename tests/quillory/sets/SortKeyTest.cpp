#include <quillory/faults/Errors.h>
#include <quillory/sets/SortKey.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tests/quillory/Records.h>
#include <vector>

namespace quillory {
namespace {

// The ids of records in the order of their keys.
std::string Order(const std::vector<Lines>& records, SortOrder order) {
    RecordSortKeys keys(std::move(order), kCharsetAuto);
    std::vector<std::pair<std::string, std::string>> rows;
    for (const Lines& lines : records) {
        const TestRecord test(lines, '$');
        std::string key;
        keys.KeyOf(test.record, key);
        rows.emplace_back(key, test.record.ControlNumber());
    }
    std::ranges::stable_sort(rows, {}, [](const auto& row) { return row.first; });
    std::string ids;
    for (const auto& row : rows) ids += row.second;
    return ids;
}

std::string By(const std::string& places, const std::vector<Lines>& records, bool numeric = false,
               bool reverse = false) {
    return Order(records, {ParseKeyPlaces("--by", places), numeric, reverse});
}

std::vector<Lines> Titles(const std::vector<std::string>& fields) {
    std::vector<Lines> records;
    records.reserve(fields.size());
    char id = 'a';
    for (const std::string& field : fields) {
        records.push_back({"001" + std::string(1, id++), field});
    }
    return records;
}

TEST(SortKey, TitlesAreFiledAsALibraryDoes) {
    const auto titles =
        Titles({"24514$aThe zebra", "24510$arivers", "24513$aAn apple", "24510$aRivers and seas",
                "24509$aShort", "24510$aZ\xC3\xA9ro", "24510$a\xE4\xB8\x80", "24510$aZero"});
    EXPECT_EQ(By("245a", titles), "cbdeahfg");
    EXPECT_EQ(By("title", titles), "cbdeahfg");
    EXPECT_EQ(By("245", titles), "cbdeahfg");
}

TEST(SortKey, MarkedArticlesDoNotSort) {
    EXPECT_EQ(By("245a", Titles({"24500$a\xC2\x98"
                                 "Der\xC2\x9C Zug",
                                 "24500$aEule"})),
              "ba");
}

TEST(SortKey, ARecordWithoutAValueComesLastEitherWay) {
    const auto titles = Titles({"500  $aNote", "24510$aB", "24510$a ", "24510$aA"});
    EXPECT_EQ(By("245a", titles), "dbac");
    EXPECT_EQ(By("245a", titles, false, true), "bdac");
}

TEST(SortKey, NumbersAreSortedByTheirValue) {
    const auto records =
        Titles({"490  $vv. 12", "490  $v9", "490  $v-3", "490  $vnone", "490  $v9.50",
                "490  $v0009.5", "490  $v-3.2", "490  $v" + std::string(10000, '9')});
    EXPECT_EQ(By("490v", records, true), "gcbefahd");
    EXPECT_EQ(By("490v", records, true, true), "haefbcgd");
}

TEST(SortKey, PlacesFollowOneAnother) {
    const std::vector<Lines> records{{"001a", "1001 $aB", "24510$aX"},
                                     {"001b", "1001 $aA", "24510$aY"},
                                     {"001c", "1001 $aB", "24510$aA"},
                                     {"001d", "1001 $aAB", "24510$aA"},
                                     {"001e", "1001 $aA", "24510$aX"}};
    EXPECT_EQ(By("100a,245a", records), "ebdca");
    EXPECT_EQ(By("100a,245a", records, false, true), "acdbe");
    EXPECT_EQ(By("245/2, 100a", records), "bedac");
}

TEST(SortKey, WhatIsNoPlaceIsShown) {
    for (const char* text : {"", "24", "245a,,x", "008/x"}) {
        EXPECT_THROW(ParseKeyPlaces("--by", text), UsageError) << text;
    }
}

}  // namespace
}  // namespace quillory
