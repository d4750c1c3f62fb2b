#include <zorby/ini/KeysNValues.h>

#include <gtest/gtest.h>

#include <random>

using namespace zorby;

namespace {

struct PackedCase {
    const char* separator;
    const char* text;
    bool allowTrailingBackslash;
    const char* repacked;  // with "/" for the separator
};

TEST(KeysNValues, ParsesPackedTexts) {
    const std::vector<PackedCase> cases{
        {R"(\\)", "", false, ""},
        {R"(\\)", R"(A=1\\B=2)", false, "A=1/"},
        {R"(\\)", R"(A=1\\B=2\\)", false, "A=1/B=2/"},
        {R"(\\)", R"(A=x\\\B=2\\)", true, R"(A=x\/B=2/)"},
        {R"(\\)", R"(A=x\\\B=2\\)", false, R"(A=x/\B=2/)"},
        {R"(\\)", R"(A=x\\\\B=2\\)", true, R"(A=x\/\B=2/)"},
        {R"(\\)", R"(\\\\A=1\\)", false, "A=1/"},
        {R"(\\)", R"(\\\A=1\\)", true, R"(=\/A=1/)"},
        {R"(\\)", R"(word\\=v\\A=1=2\\A=3\\)", false, "=word/=v/A=1=2/A=3/"},
        {"^^", "A=1^^B=2^^", false, "A=1/B=2/"},
        {"|", R"(A=\\|B|)", true, R"(A=\\/=B/)"},
        {"", "A=1", false, ""},
    };
    for (const PackedCase& test : cases) {
        CKeysNValues pairs;
        pairs.SetKey("old", 1);
        pairs.SetSeperator(test.separator);
        pairs.Set(test.text, test.allowTrailingBackslash);
        pairs.SetSeperator("/");
        EXPECT_EQ(pairs.Get(), test.repacked) << test.text;
        EXPECT_EQ(pairs.IsEmpty(), pairs.Get().empty()) << test.text;
    }
}

TEST(KeysNValues, TheFirstPairOfAKeyCounts) {
    CKeysNValues pairs;
    pairs.Set(R"(A=1\\B=2\\A=3\\)", false);
    pairs.SetKey("A", "x");
    pairs.SetKey("C", -4);
    EXPECT_EQ(pairs.Get(), R"(A=x\\B=2\\A=3\\C=-4\\)");
    pairs.RemoveKey("A");
    pairs.RemoveKey("absent");
    EXPECT_EQ(pairs.Get(), R"(B=2\\A=3\\C=-4\\)");
    int number = 9;
    EXPECT_EQ(pairs.GetKey("A", number), 1);
    EXPECT_EQ(number, 3);
    pairs.RemoveAllKeys();
    EXPECT_TRUE(pairs.IsEmpty());
}

TEST(KeysNValues, AnAbsentKeyLeavesTheResultAlone) {
    const CKeysNValues pairs;
    std::string text = "kept";
    int number = 7;
    unsigned count = 8;
    EXPECT_EQ(pairs.GetKey("A", text) + pairs.GetKey("A", number) + pairs.GetKey("A", count), 0);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(number, 7);
    EXPECT_EQ(count, 8U);
}

TEST(KeysNValues, UnsignedNumbersComeBack) {
    CKeysNValues pairs;
    for (const unsigned number : {0U, 7U, 2147483648U, 4294967295U}) {
        SCOPED_TRACE(number);
        unsigned found = 1;
        pairs.SetKey("signed", static_cast<int>(number));
        EXPECT_EQ(pairs.GetKey("signed", found), 1);
        EXPECT_EQ(found, number);
        pairs.SetKey("text", std::to_string(number));
        EXPECT_EQ(pairs.GetKey("text", found), 1);
        EXPECT_EQ(found, number);
    }
}

TEST(KeysNValues, RandomTextsRepackToAFixedPoint) {
    std::mt19937 random(3);
    const std::string alphabet = R"(\\\\=ab)";
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (auto length = random() % 16; length > 0; --length) {
            text += alphabet[random() % alphabet.size()];
        }
        CKeysNValues pairs;
        pairs.Set(text, false);
        const std::string once = pairs.Get();
        pairs.Set(once, false);
        ASSERT_EQ(pairs.Get(), once) << text;
    }
}

}  // namespace
