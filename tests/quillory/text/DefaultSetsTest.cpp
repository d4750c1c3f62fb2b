#include <quillory/text/DefaultSets.h>
#include <quillory/text/TextConverter.h>

#include <gtest/gtest.h>

#include <random>

namespace quillory {
namespace {

// All units of one and of two bytes, and all of a letter under two diacritics.
TEST(DefaultSets, SayWhatLibyazSays) {
    YazConverter libyaz("UTF-8", "MARC-8");
    int known = 0;
    const auto compare = [&](const std::string& unit) {
        std::string ours;
        std::string theirs;
        const auto outcome = DecodeInDefaultSets(unit, ours);
        if (!outcome) return;
        ++known;
        EXPECT_EQ(*outcome, libyaz.Convert(unit, theirs)) << testing::PrintToString(unit);
        EXPECT_EQ(ours, theirs) << testing::PrintToString(unit);
    };
    for (unsigned first = 0; first < 256; ++first) {
        const std::string one(1, static_cast<char>(first));
        compare(one);
        for (unsigned second = 0; second < 256; ++second) {
            const std::string two = one + static_cast<char>(second);
            compare(two);
            for (const char letter : std::string("aI \xA1")) compare(two + letter);
        }
    }
    EXPECT_GT(known, 5000);
}

TEST(DefaultSets, LeaveOtherUnitsToLibyaz) {
    for (const char* const unit : {"", "ab", "a\xE2", "\x88", "\xEC", "\xFB", "\xE2\x7F", "\xAF",
                                   "\x1B", "\xE2\n", "\xA0", "\xFF"}) {
        std::string utf8;
        EXPECT_FALSE(DecodeInDefaultSets(unit, utf8)) << testing::PrintToString(unit);
    }
}

// What is said to be whole, the converter takes without a loss. Letters, diacritics, halves of
// them, controls and bytes that nothing defines come in any order.
TEST(DefaultSets, HoldNothingThatIsLost) {
    constexpr std::string_view kBytes =
        "aI \xA1\xC8\xE1\xE2\xEB\xEC\xFA\xFB\x88\xAF\xFF\x7F\n\x1B(";
    TextConverter converter(kCharsetMarc8, kCharsetUtf8, kNormalFormC);
    std::minstd_rand random(1);
    int whole = 0;
    for (int i = 0; i < 50000; ++i) {
        std::string text(random() % 7, ' ');
        for (char& c : text) c = kBytes[random() % kBytes.size()];
        std::string utf8;
        Losses losses;
        converter.Append(text, utf8, losses);
        if (!IsInDefaultSets(text)) continue;
        ++whole;
        EXPECT_FALSE(losses.First(kLossReplaced)) << testing::PrintToString(text);
    }
    EXPECT_GT(whole, 5000);
}

// So that most texts of Latin scripts need no more than a look.
TEST(DefaultSets, HoldTextsOfLatinScripts) {
    for (const char* const text : {"", "plain", "E\xE2tude", "\xB5re", "\xE8uber \xA9 1998"}) {
        EXPECT_TRUE(IsInDefaultSets(text)) << text;
    }
    for (const char* const text : {"a\xE2", "\xE2\xE8u", "\x1B(N1", "\xFF", "a\nb", "\xECu"}) {
        EXPECT_FALSE(IsInDefaultSets(text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace quillory
