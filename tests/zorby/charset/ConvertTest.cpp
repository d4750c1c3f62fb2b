#include <zorby/charset/Convert.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/QmCode.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zorby {
namespace {

std::string ToQm(std::string text) {
    CSMARCToZorby(text);
    return text;
}

std::string ToMarc(std::string text) {
    CSZorbyToMARC(text);
    return text;
}

TEST(MarcConvert, ToQm) {
    const std::pair<std::string, std::string> kCases[] = {
        {"", ""},
        {"\xE2\x65", "\xE6"},
        {"\xE9\x63", "\x63\xAB"},
        {"\xE2\xE9\x65", "\xA4\x65\xAB"},
        {"x\xE2\xE9\x65y", "x\xA4\x65\xABy"},
        {"a\xE9", "a\xAB"},
        {"a\xE2\xE9", "a\xA4\xAB"},
        {"H\x1B\x62\x32\x1B\x73O", "H\xC8O"},
        {"\x1B\x70\x32\x1B\x73", "\xD6"},        // the closing escape ends the text
        {"\x1B\147azb \x1B\x73z", "\xBF\xC0z"},  // letters and blanks that Greek has not
        {"\x1B(Bx", "(Bx"},                      // an unknown escape, read again as characters
        {"\x1B\x70\x1B\1632", "2"},              // an escape behind an escape does not decode
        {"a\x1D\x1E\037b\x01\177c", "abc"},
        {"a\x1B", "a"},
        {"ab\x1B(", "ab"},
        {std::string("a\0b", 3), "a"},
        {"\xC7\x80\xFFz", "z"},
        {"a\xFF\377b", "a"},  // two bytes 0xFF are the code 0, which ends the text
        {"plain text that is longer than one word \342ecole",
         "plain text that is longer than one word \346cole"},
    };
    for (const auto& [marc, qm] : kCases) EXPECT_EQ(ToQm(marc), qm) << testing::PrintToString(marc);
}

TEST(MarcConvert, ToMarc) {
    const std::pair<std::string, std::string> kCases[] = {
        {"", ""},
        {"\xE6", "\xE2\x65"},
        {"\x63\xAB", "\xE9\x63"},
        {"\xA4\x65\xAB", "\xE2\xE9\x65"},
        {"a\xA4\xAB", "\342a\xE9"},  // only one diacritic moves
        {"\x48\xC8\x4F", "\x48\x1B\x62\x32\x1B\x73\x4F"},
        {"\x48\xC8", "\x48\x1B\x62\x32"},
        {"\xC8\xC9\xD6", "\x1B\x62\x32\x33\x1B\x70\x32"},
        {"\xC8\xE6", "\x1B\x62\x32\x1B\163e"},         // loses its accent
        {"\310c\253d", "\x1B\x62\x32\x1B\163c\351d"},  // keeps it behind
        {"\x1F\xA4", "\x20\x1B\x73\xE2"},
        {"a\x01", "a\xFF\xFF"},
    };
    for (const auto& [qm, marc] : kCases) EXPECT_EQ(ToMarc(qm), marc) << testing::PrintToString(qm);
}

// Every code that MARC-8 has comes back, alone and between plain letters.
TEST(MarcConvert, EveryCodeComesBack) {
    for (unsigned code = 0x20; code <= 0xFF; ++code) {
        if (code == 0x7F) continue;
        const std::string alone(1, static_cast<char>(code));
        const bool inAlphabet = KeyRecordOf(static_cast<unsigned char>(code)).alphabet != 0;
        EXPECT_EQ(ToQm(ToMarc(alone)), alone) << code;
        if (inAlphabet) continue;
        EXPECT_EQ(ToQm(ToMarc("x" + alone + "y")), "x" + alone + "y") << code;
    }
}

// Bytes of all kinds: no crash, and a size within the promised bound.
TEST(MarcConvert, AnyBytes) {
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> any(1, 255);
    std::uniform_int_distribution<std::size_t> length(0, 40);
    constexpr unsigned char kBusy[] = {0x1B, 's', 'b', 'p', 'g', 0xE2, 0xE8, 'a', '2', 0xFF};
    for (int round = 0; round < 20000; ++round) {
        std::string text(length(random), 'a');
        for (char& c : text) {
            const int byte = any(random);
            c = static_cast<char>(round % 2 == 0 ? byte : kBusy[byte % 10]);
        }
        const std::string qm = ToQm(text);
        EXPECT_LE(qm.size(), text.size()) << testing::PrintToString(text);
        EXPECT_EQ(qm.find('\0'), qm.npos) << testing::PrintToString(text);
        const std::string marc = ToMarc(qm);
        EXPECT_LE(marc.size(),
                  static_cast<std::size_t>(CSQmGetWorstCaseSenarioMARCSize(qm.c_str())))
            << testing::PrintToString(text);
        const char* p = text.c_str();
        CSResetAlphabet();
        while (*p != 0) {
            int consumed = 0;
            CSMARCCharIsValid(p, &consumed);
            ASSERT_GE(consumed, 1) << testing::PrintToString(text);
            p += consumed;
            ASSERT_LE(p, text.c_str() + text.size()) << testing::PrintToString(text);
        }
    }
}

TEST(MarcConvert, ValidityFollowsEscapes) {
    int consumed = 0;
    CSResetAlphabet();
    EXPECT_EQ(CSMARCCharIsValid("\037a", &consumed), 1);
    EXPECT_EQ(consumed, 1);
    EXPECT_EQ(CSMARCCharIsValid("\xE2\x65", &consumed), 1);
    EXPECT_EQ(consumed, 2);
    EXPECT_EQ(CSMARCCharIsValid("\x1B\147a", &consumed), 1);
    EXPECT_EQ(consumed, 3);
    EXPECT_EQ(CSMARCCharIsValid("z", &consumed), 0) << "Greek is in force";
    EXPECT_EQ(CSMARCCharIsValid("\x1B\x73\x1E", &consumed), 1);
    EXPECT_EQ(consumed, 2);
    EXPECT_EQ(CSMARCCharIsValid("z", &consumed), 1);
}

TEST(MarcConvert, WorstCaseSize) {
    EXPECT_EQ(CSQmGetWorstCaseSenarioMARCSize(""), 0);
    EXPECT_EQ(CSQmGetWorstCaseSenarioMARCSize("\x61\xDE\xC8"), 8);
    EXPECT_EQ(CSQmGetWorstCaseSenarioMARCSize("\x1F\x01"), 7);
}

TEST(DisplayConvert, DisplayAndPlainLetters) {
    struct Case {
        std::string source;
        int type;
        int keepControls;
        std::string target;
    };
    const Case kCases[] = {
        {"a\x87\x80\xDE", 1, 0, "a\xB7\x7F\xE1"},  {"a\x87\x80\xDE", 2, 0, "a\x87\x80\xDE"},
        {"a\x87z", 5, 0, std::string("a\0z", 3)},  {"\t\x1Fz", 1, 1, "\t\x7Fz"},
        {"\t\x1Fz", 2, 0, std::string("\0 z", 3)},
    };
    for (const Case& c : kCases) {
        std::string target(c.source.size(), '?');
        CSQmToDisplay(c.source.c_str(), target.data(), c.type, c.keepControls);
        EXPECT_EQ(target, c.target) << testing::PrintToString(c.source) << ", type " << c.type;
    }
    std::string plain(8, '?');
    CSQmToNonDiacritic("\x65\xA4\xDF\x84\xD5~Q\xBF", plain.data());
    EXPECT_EQ(plain, "e aa ~Q ");
}

TEST(Latin1Convert, FromQm) {
    struct Case {
        std::string qm;
        int result;
        std::string latin1;
    };
    const Case kCases[] = {
        {"\x65\xA5", 1, "\xEA"},
        {"\x65\x5E", 1, "\xEA"},      // a spacing circumflex merges too
        {"\x61\xAA", 1, "\x61\xA8"},  // no rule ever fires for it
        {"I\xA3O\xA3", 1, "\xCC\xD2"},
        {"\xE6t\xE6", 1, "\xE9t\xE9"},
        {"e\xA5x\x80yz", 0,
         "\xEAx"
         "x\x80yz"},  // half converted: what was written, then the rest
        {"a\001b", 1, "a"},
        {"e", 1, "e"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.qm));
        std::string text = c.qm;
        EXPECT_EQ(CSQmToISO8859(text, 0), c.result);
        EXPECT_EQ(text, c.latin1);
    }
}

TEST(Latin1Convert, ToQm) {
    const std::pair<std::string, std::string> kCases[] = {
        {"\xE4\xC5", "a\252A\xAC"},
        {"\x92\x01", "\x8D\x80"},
        {"\t\n\r\x7F\xA0\xE5\xFF\xFEz", "z"},
        {"\xDE\xE9", "\x83\xE6"},
    };
    for (const auto& [latin1, qm] : kCases) {
        std::string text = latin1;
        CSISO8859ToQm(text);
        EXPECT_EQ(text, qm) << testing::PrintToString(latin1);
    }
}

}  // namespace
}  // namespace zorby
