#include <quillory/text/KeptLetters.h>

#include <gtest/gtest.h>

namespace quillory {
namespace {

TEST(KeptLetters, OnlyLettersThatWereEditedChangeTheirSpelling) {
    struct Case {
        const char* given;
        const char* edited;
        const char* kept;
    };
    for (const Case& c : {
             Case{"Cafe\u0301 \u00E0 gogo", "Caf\u00E9 \u00E0 gogo", "Cafe\u0301 \u00E0 gogo"},
             Case{"e\u0301a\u0301", "\u00E9x\u00E1", "e\u0301xa\u0301"},
             Case{"e\u0301", "\u00E9\u00E0", "e\u0301a\u0300"},  // as the others are
             Case{"\u00E9", "\u00E9a\u0300", "\u00E9\u00E0"},
             Case{"aa", "aaa", "aaa"},
             Case{"aaa", "aa", "aa"},
             Case{"", "a\u0300", "\u00E0"},
             Case{"e\u0301", "", ""},
             Case{"\xFF e\u0301", "\xFF \u00E9!", "\xFF e\u0301!"},
         }) {
        EXPECT_EQ(WithLettersKept(c.given, c.edited), c.kept) << c.given << " > " << c.edited;
    }
}

}  // namespace
}  // namespace quillory
