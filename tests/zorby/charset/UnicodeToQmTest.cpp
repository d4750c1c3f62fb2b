#include <zorby/charset/Convert.h>
#include <zorby/charset/UnicodeToQm.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zorby {
namespace {

TEST(UnicodeToQm, Placed) {
    const std::pair<std::u16string, std::string> kCases[] = {
        {u"", ""},
        {u"plain {~}", "plain {~}"},
        {u"\u00E9cole",
         "\xE6"
         "cole"},
        {u"e\u0301cole",
         "e\xA4"
         "cole"},  // as it was given
        {u"\u0141\u00F3d\u017A",
         "\x80\xF4"
         "dz\xA4"},
        {u"\u1EA1\u0219\u021B\u1E2B", "a\xB4s\xB9t\xB9h\xBB"},
        {u"\u01B0\u01A1\u1EDB", "\x9A\x99\x99\xA4"},
        {u"u\u031Bo\u031Bo\u031B\u0301", "\x9A\x99\x99\xA4"},  // horns apart
        {u"\u1EA3\u1EA9",
         "\xA2"
         "a\xA2\xA5"
         "a"},  // hooks
        {u"a\u0309\u0302",
         "\xA2"
         "a\xA5"},
        {u"\u25CC\u0309", "\xA2"},
        {u"t\u0361sar n\u0360g",
         "t\xADs\xAE"
         "ar n\xBCg\xBD"},
        {u"t\uFE20s\uFE21", "t\xADs\xAE"},
        {u"\u212B\u212A\u037E\u0340", "A\xACK;\xA3"},  // other names of characters
        {u"\u0301", "\xA4"},
        {u"H\u2082O, \u03B1 x\u00B2", "H\xC8O, \xBF x\xD6"},
        {u" \u0301", " \xA4"},
    };
    for (const auto& [unicode, qm] : kCases) {
        SCOPED_TRACE(testing::PrintToString(unicode));
        const CodedText coded = UnicodeToQm(unicode);
        EXPECT_EQ(coded.text, qm);
        EXPECT_TRUE(coded.unplaced.empty());
    }
}

struct Unplaced {
    std::u16string unicode;
    std::string qm;
    std::vector<std::u16string> unplaced;
};

TEST(UnicodeToQm, WhatHasNoPlaceIsNamed) {
    const Unplaced kCases[] = {
        {u"\u65E5\u672C is Japan", " is Japan", {u"\u65E5\u672C"}},
        {u"Vi\u1EC7t Nam", "Vit Nam", {u"\u1EC7"}},  // two marks
        {u"x\u00E9\u0323y", "xy", {u"\u00E9\u0323"}},
        {u"a\u0309\u0301\u0302", "", {u"a\u0309\u0301\u0302"}},
        {u"a\u0309\u0309", "", {u"a\u0309\u0309"}},
        {u"H\u2082\u00E9", "H\xC8", {u"\u00E9"}},  // MARC-8 would lose the accent
        {u"\u2082e\u0301\u2082\u1EA9", "\xC8\xC8", {u"e\u0301", u"\u1EA9"}},
        {u"\u03B1\u0301\u03AC", "", {u"\u03B1\u0301\u03AC"}},
        {u"\u0309a", "a", {u"\u0309"}},  // a hook without its letter
        {u"\u25CC \u25CC\u0301", " ", {u"\u25CC", u"\u25CC\u0301"}},
        {u"t\u0361", "", {u"t\u0361"}},  // a ligature without a second letter
        {u"t\u0361\u00E9\u0361", "", {u"t\u0361\u00E9\u0361"}},
        {u"t\u0361\u0410z", "z", {u"t\u0361\u0410"}},
        {u"a\U0001F600b", "ab", {u"\U0001F600"}},
        {{u'a', 0xDE00, u'-', 0xD83D}, "a-", {{0xDE00}, {0xD83D}}},  // surrogates alone
        {{u'a', u'\0', u'\t', u'\x1F', u'\x7F', u'z'}, "az", {{u'\0', u'\t', u'\x1F', u'\x7F'}}},
        {u"a\u00A0b\u2019", "ab", {u"\u00A0", u"\u2019"}},
        {u"\u2401", "", {u"\u2401"}},
    };
    for (const Unplaced& expected : kCases) {
        SCOPED_TRACE(testing::PrintToString(expected.unicode));
        const CodedText coded = UnicodeToQm(expected.unicode);
        EXPECT_EQ(coded.text, expected.qm);
        std::vector<std::u16string> unplaced;
        for (const auto& [start, length] : coded.unplaced) {
            unplaced.push_back(expected.unicode.substr(start, length));
        }
        EXPECT_EQ(unplaced, expected.unplaced);
    }
}

// Any units at all: what has no place is in order, within the text and apart.
TEST(UnicodeToQm, AnyUnits) {
    std::mt19937 random(1);
    constexpr std::u16string_view kUnits =
        u"a\u00E9\u1EA9\u0309\u0301\u0361\uFE20\u2082\u25CCo\u031B";
    for (int round = 0; round < 20'000; ++round) {
        std::u16string unicode;
        for (std::size_t left = random() % 8; left > 0; --left) {
            const auto any = static_cast<char16_t>(random());
            unicode += random() % 5 == 0 ? any : kUnits[random() % kUnits.size()];
        }
        SCOPED_TRACE(testing::PrintToString(unicode));
        const CodedText coded = UnicodeToQm(unicode);
        std::size_t end = 0;
        std::size_t lost = 0;
        for (const auto& [start, length] : coded.unplaced) {
            ASSERT_TRUE(start > end || (start == 0 && end == 0));
            ASSERT_GT(length, 0U);
            end = start + length;
            lost += length;
        }
        ASSERT_LE(end, unicode.size());
        ASSERT_EQ(coded.text.empty(), lost == unicode.size());
        ASSERT_EQ(coded.text.find_first_of(std::string("\0\x1F\x7F", 3)), std::string::npos);
    }
}

}  // namespace
}  // namespace zorby
