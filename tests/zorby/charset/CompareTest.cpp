#include <zorby/charset/Compare.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zorby {
namespace {

std::string Key(std::string text) {
    CSpConvertForCompare(&text);
    return text;
}

TEST(Compare, Keys) {
    const std::pair<std::string, std::string> kCases[] = {
        {"", ""},
        {"Zorby", "zorby"},
        {"\x61\x2D\x62\x20\x63", "a b c"},
        {"a -./ b", "a b"},
        {" a", " a"},
        {"\xE6", "e\xE4"},
        {"e\xA4", "e\xE4"},
        {"\xA4z", "z"},          // a diacritic without a letter before it
        {"e\xA4\xAB", "e\xE4"},  // only the first counts
        {"\xE6\xAB", "e\xE4"},   // a precomposed letter is no ASCII letter
        {" \xA4 x", " x"},       // a skipped diacritic does not part two blanks
        {"1", "1\x01"},
        {"\xD5", "1\x02"},
        {"\xC7", "1\x03"},
        {"!", "\xFF"},
        {"?", "\xFF"},
        {"ab\001c", "ab"},
        {"a\x7F", "a"},
        {"\x84\x82\x98", "aed\377d"},
    };
    for (const auto& [text, key] : kCases) {
        EXPECT_EQ(Key(text), key) << testing::PrintToString(text);
    }
}

TEST(Compare, KeysAndTexts) {
    EXPECT_EQ(CSZorbyComparePreConv("ab", "a"), 1);
    EXPECT_EQ(CSZorbyComparePreConv("a", "ab"), -1);
    EXPECT_EQ(CSZorbyComparePreConv("", ""), 0);
    EXPECT_EQ(CSZorbyComparePreConv("", "a"), -1);
    EXPECT_EQ(CSZorbyComparePreConv("a", ""), 1);
    EXPECT_EQ(CSZorbyComparePreConv("a", "c"), -2);
    EXPECT_EQ(CSZorbyComparePreConv("\xFF", "a"), 0xFF - 'a');
    EXPECT_EQ(CSZorbyComparePreConv("a b", "a,b"), 0);
    EXPECT_EQ(CSZorbyComparePreConv("a,b", "a b"), 12);
    EXPECT_EQ(CSZorbyCompare("\311COLE-a", "\311cole a"), 0);
    EXPECT_EQ(CSZorbyCompare("\346cole", "E\244COLE"), 0);
    EXPECT_LT(CSZorbyCompare("a", "\xDE"), 0);
    EXPECT_GT(CSZorbyCompare("o\xAA", "o"), 0);
}

TEST(Compare, CaseHasItsExactReach) {
    for (unsigned i = 1; i < 256; ++i) {
        const auto code = static_cast<unsigned char>(i);
        std::string lower(1, static_cast<char>(code));
        std::string upper = lower;
        CSMakeLower(lower);
        CSMakeUpper(upper);
        unsigned char expectedLower = code;
        if (code >= 'A' && code <= 'Z') expectedLower = static_cast<unsigned char>(code + 32);
        if (code >= 0x80 && code <= 0x85) expectedLower = static_cast<unsigned char>(code + 0x0F);
        if (code == 0x8B || code == 0x8C) expectedLower = static_cast<unsigned char>(code + 0x0E);
        if (code == 0x1F) expectedLower = 0x7F;
        unsigned char expectedUpper = code;
        if (code >= 'a' && code <= 'z') expectedUpper = static_cast<unsigned char>(code - 32);
        if (code >= 0xDE && code % 2 == 0) expectedUpper = static_cast<unsigned char>(code + 1);
        EXPECT_EQ(static_cast<unsigned char>(lower[0]), expectedLower) << i;
        EXPECT_EQ(static_cast<unsigned char>(upper[0]), expectedUpper) << i;
    }
}

TEST(Compare, Classes) {
    struct Case {
        unsigned char code;
        int alpha, numeric, punctuation, blank, diacritic, usedToSort;
    };
    constexpr Case kCases[] = {
        {'q', 1, 0, 0, 0, 0, 1},  {'7', 0, 1, 0, 0, 0, 1},  {'-', 0, 0, 1, 1, 0, 1},
        {' ', 0, 0, 0, 1, 0, 1},  {'!', 0, 0, 1, 0, 0, 0},  {0xD5, 0, 0, 0, 0, 0, 1},
        {0x84, 1, 0, 0, 0, 0, 1}, {0x96, 1, 0, 0, 0, 0, 1}, {0x98, 1, 0, 0, 0, 0, 1},
        {0xDF, 1, 0, 0, 0, 0, 1}, {0xBF, 0, 0, 0, 0, 0, 1}, {0xA2, 0, 0, 1, 0, 0, 0},
        {0xA3, 0, 0, 0, 0, 1, 1}, {0xBE, 0, 0, 0, 0, 1, 1}, {0x1F, 0, 0, 0, 0, 0, 0},
        {0x01, 0, 0, 0, 0, 0, 1}, {0xC5, 0, 0, 1, 0, 0, 0}, {0xD3, 0, 0, 1, 0, 0, 0},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(CSIsAlpha(c.code), c.alpha) << int(c.code);
        EXPECT_EQ(CSIsNumeric(c.code), c.numeric) << int(c.code);
        EXPECT_EQ(CSIsPunctuation(c.code), c.punctuation) << int(c.code);
        EXPECT_EQ(CSIsABlank(c.code), c.blank) << int(c.code);
        EXPECT_EQ(CSIsDiacritic(c.code), c.diacritic) << int(c.code);
        EXPECT_EQ(CSUsedToSort(c.code), c.usedToSort) << int(c.code);
    }
}

}  // namespace
}  // namespace zorby
