#include <zorby/charset/Convert.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/QmCode.h>

#include <gtest/gtest.h>

#include <string>

namespace zorby {
namespace {

TEST(QmCode, KeyInfoLeavesOutputsAloneWhenNotReady) {
    unsigned char code = 7;
    unsigned char display = 8;
    EXPECT_EQ(CSKeyInfo('a', &code, &display, 0), 0);
    CSFree();
    EXPECT_EQ(CSKeyInfo('a', &code, &display, 1), 0);
    CSInitialize();
    EXPECT_EQ(code, 7);
    EXPECT_EQ(display, 8);
}

TEST(QmCode, KeyInfoFindsCodeAndDisplay) {
    struct Case {
        unsigned char key;
        unsigned type;
        int result;
        unsigned char code;
        unsigned char display;
    };
    constexpr Case kCases[] = {
        {'~', 1, 1, '~', '~'},    {0, 1, 1, 0, 0},          {0x1F, 1, 0, 0, 0},
        {0x7F, 2, 0, 0, 0},       {0x80, 1, 1, 0x80, 0x7F}, {0x80, 2, 1, 0x80, 0x80},
        {0x87, 1, 1, 0x87, 0xB7}, {0x87, 9, 1, 0x87, 0},    {0xFF, 1, 1, 0xFF, 0xDC},
    };
    for (const Case& expected : kCases) {
        SCOPED_TRACE("key " + std::to_string(expected.key) + ", type " +
                     std::to_string(expected.type));
        unsigned char code = 1;
        unsigned char display = 1;
        EXPECT_EQ(CSKeyInfo(expected.key, &code, &display, expected.type), expected.result);
        EXPECT_EQ(code, expected.code);
        EXPECT_EQ(display, expected.display);
    }
    EXPECT_EQ(CSGetKeyFromQmCode(0x1F), 0x20);
    EXPECT_EQ(CSGetKeyFromQmCode(0x7F), 0);
    EXPECT_EQ(CSGetKeyFromQmCode('^'), '^');
}

TEST(QmCode, DisplayTypeIsKeptWhateverItIs) {
    for (const int type : {0, 3, -1, 1, 2}) {
        SCOPED_TRACE(type);
        EXPECT_EQ(CSSetDisplayType(type), type);
        EXPECT_EQ(CSGetDisplayType(), type);
        EXPECT_EQ(CSInSIL(), type == 2 ? 1 : 0);
        EXPECT_EQ(CSDotInMiddleOfLine(), type == 1 ? 0xB7 : type == 2 ? 0x87 : 0);
    }
    CSSetDisplayType(0);
}

// The precomposed letters are what they are made of, in every column.
TEST(KeyTable, PrecomposedLettersAgreeWithTheirParts) {
    for (unsigned code = 0xDE; code <= 0xFF; ++code) {
        const KeyRecord& row = KeyRecordOf(static_cast<unsigned char>(code));
        const KeyRecord& letter = KeyRecordOf(row.marc1);
        EXPECT_EQ(row.sort1, letter.sort1) << code;
        bool foundMark = false;
        for (unsigned mark = 0xA3; mark <= 0xBE; ++mark) {
            const KeyRecord& diacritic = KeyRecordOf(static_cast<unsigned char>(mark));
            if (diacritic.marc1 != row.marc2) continue;
            foundMark = true;
            EXPECT_EQ(row.sort2, diacritic.sort1) << code;
        }
        EXPECT_TRUE(foundMark) << code;
        EXPECT_EQ(code % 2 == 1, row.marc1 < 'a') << "odd codes are capitals: " << code;
    }
}

TEST(KeyTable, LongNames) {
    EXPECT_STREQ(CharacterLongName(10128), "Polish L");
    EXPECT_STREQ(CharacterLongName(10222), "a with acute");
    EXPECT_STREQ(CharacterLongName(10256), "e with circumflex");
    EXPECT_STREQ(CharacterLongName(10266), "A with circle above");
    EXPECT_EQ(CharacterLongName(10127), nullptr);
    EXPECT_EQ(CharacterLongName(10267), nullptr);
    EXPECT_EQ(CharacterLongName(0), nullptr);
}

}  // namespace
}  // namespace zorby
