#include <quillory/text/DefaultSets.h>

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quillory
