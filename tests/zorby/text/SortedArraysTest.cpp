#include <zorby/text/StringAndUINTArraySorted.h>
#include <zorby/text/StringArraySorted.h>
#include <zorby/text/TagAndSubfieldArray.h>
#include <zorby/text/TagArray.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zorby {
namespace {

CStringArraySorted ListOf(const std::vector<std::string>& texts) {
    CStringArraySorted list;
    for (const std::string& text : texts) list.Add(text);
    return list;
}

TEST(StringArraySorted, FindsInSortedOrder) {
    struct Row {
        std::vector<std::string> texts;
        std::string sought;
        int ignoreCase;
        int result;
    };
    const std::vector<Row> rows = {
        {{}, "", 0, 0},
        {{"beta", "alpha"}, "alpha", 0, 1},
        {{"beta", "alpha"}, "beta", 0, 2},
        {{"alpha"}, "ALPHA", 0, 0},
        {{"alpha"}, "ALPHA", 1, 1},
        {{"b", "B", "a", "A"}, "A", 0, 2},  // the order of adding stays: a A b B
        {{"b", "B", "a", "A"}, "A", 1, 1},
        {{"b", "B", "a", "A"}, "B", 0, 4},
        {{"ab", "a", "abc", ""}, "abc", 0, 4},
        {{"\xE9", "z"}, "\xE9", 0, 2},  // bytes count as unsigned
        {{"\xE9"}, "\xC9", 1, 0},       // letters beyond ASCII have no case
        {{"a", "_", "B"}, "_", 0, 1},   // folded to small letters: "_" is below "b"
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ListOf(row.texts).Find(row.sought, row.ignoreCase), row.result) << row.sought;
    }
}

TEST(StringArraySorted, SortsAgainAfterAdd) {
    CStringArraySorted list = ListOf({"b", "d"});
    EXPECT_EQ(list.Find("b", 0), 1);
    list.Add("a");
    EXPECT_EQ(list.Find("b", 0), 2);
    EXPECT_EQ(list, (std::vector<std::string>{"a", "b", "d"}));
}

TEST(StringAndUINTArraySorted, BothSortsAreStable) {
    CStringAndUINTArraySorted list;
    for (const CStringAndUINT& pair :
         {CStringAndUINT{"Map", 0xFFFFFFFF}, {"book", 1}, {"MAP", 1}, {"Book", 0x80000000}}) {
        list.push_back(pair);
    }
    const auto texts = [&list] {
        std::string all;
        for (const CStringAndUINT& pair : list) all += pair.text + ' ';
        return all;
    };
    list.SortByCString();
    EXPECT_EQ(texts(), "book Book Map MAP ");
    list.SortByUINT();
    EXPECT_EQ(texts(), "book MAP Book Map ");
}

TEST(TagArray, KeepsEveryTag) {
    std::mt19937 random(1);
    CTagArray tags;
    EXPECT_EQ(tags.Find(0), 0);
    for (int i = 0; i < 500; ++i) tags.push_back(static_cast<unsigned>(random() % 100));
    const CTagArray before = tags;
    tags.Sort();
    EXPECT_TRUE(std::is_permutation(tags.begin(), tags.end(), before.begin(), before.end()));
    tags.RemoveDuplicates();
    EXPECT_EQ(std::adjacent_find(tags.begin(), tags.end()), tags.end());
    for (const unsigned tag : before) EXPECT_EQ(tags.Find(tag), 1) << tag;
    EXPECT_EQ(tags.Find(100), 0);
}

using Pairs = std::vector<std::pair<unsigned, char>>;

Pairs PairsOf(const CTagAndSubfieldArray& array) {
    Pairs pairs;
    for (int i = 0; i < array.GetSize(); ++i) {
        auto& [tag, code] = pairs.emplace_back();
        array.GetAt(i, tag, code);
    }
    return pairs;
}

TEST(TagAndSubfieldArray, SortsByTagAndUnsignedCode) {
    CTagAndSubfieldArray array;
    const Pairs added = {{246, 'a'}, {245, 'b'}, {245, '\xE9'}, {245, 'a'}, {245, '9'}, {8, 'z'}};
    for (const auto& [tag, code] : added) array.Add(tag, code);
    EXPECT_EQ(PairsOf(array), added);
    array.Sort();
    EXPECT_EQ(PairsOf(array),
              (Pairs{{8, 'z'}, {245, '9'}, {245, 'a'}, {245, 'b'}, {245, '\xE9'}, {246, 'a'}}));
}

TEST(TagAndSubfieldArray, DropsDuplicatesAndGuardsItsEnds) {
    CTagAndSubfieldArray array;
    array.RemoveDuplicates();
    EXPECT_EQ(array.Add(245, 'a'), 0);
    EXPECT_EQ(array.Add(100, 'a'), 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(array.Add(245, 'a'), 2 + i);
    array.RemoveDuplicates();
    EXPECT_EQ(PairsOf(array), (Pairs{{100, 'a'}, {245, 'a'}}));
    for (const int index : {2, 1000, -1, -2147483647 - 1}) {
        SCOPED_TRACE(index);
        unsigned tag = 5;
        char code = 'x';
        array.GetAt(index, tag, code);
        EXPECT_EQ(tag, 1000U);
        EXPECT_EQ(code, 0);
    }
}

}  // namespace
}  // namespace zorby
