#include <quillory/faults/Errors.h>
#include <quillory/sets/MatchKey.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/Records.h>
#include <vector>

namespace quillory {
namespace {

using Keys = std::vector<std::string>;

Keys KeysOf(const std::vector<std::string>& ways, const Lines& lines) {
    const TestRecord test(lines, '$');
    Keys keys;
    MatchKeys(ways, kCharsetAuto).Of(test.record, keys);
    return keys;
}

const Lines kRecord{"001 B-12 ",
                    "008240109s1913    fr            000 1 fre d",
                    "020  $a0306406152$z9999999990",
                    "020  $a978-0-306-40615-7 (pbk.)",
                    "020  $cfree",
                    "1001 $aProust, Marcel,$d1871-1922",
                    "24514$aThe\xC3\xA9 Rivers! :$bof \"France\" /$cX"};

TEST(MatchKeys, AreNormalAndEachOnce) {
    EXPECT_EQ(KeysOf({"001"}, kRecord), (Keys{"001 B-12"}));
    EXPECT_EQ(KeysOf({"020"}, kRecord), (Keys{"020 9780306406157"}));
    EXPECT_EQ(KeysOf({"020z"}, kRecord), (Keys{"020z 9999999990"}));
    EXPECT_EQ(KeysOf({"245ab"}, kRecord), (Keys{"245ab thee rivers", "245ab of france"}));
    EXPECT_EQ(KeysOf({"008/35-37"}, kRecord), (Keys{"008/35-37 fre"}));
    EXPECT_EQ(KeysOf({"title"}, kRecord),
              (Keys{"title a / thee rivers of france / proust marcel / 1913"}));
    EXPECT_EQ(KeysOf({"022", "001"}, kRecord), (Keys{"001 B-12"}));
}

TEST(MatchKeys, SeveralPlacesAreOneKeyIfAllAreThere) {
    EXPECT_EQ(KeysOf({"100a, 008/07-10"}, kRecord), (Keys{"100a, 008/07-10 proust marcel + 1913"}));
    EXPECT_EQ(KeysOf({"100a,110a"}, kRecord), Keys{});
    EXPECT_EQ(KeysOf({"title"}, {"001x", "24500$a."}), Keys{});
    EXPECT_EQ(KeysOf({"title"}, {"24500$aX", "260  $cc1999"}), (Keys{"title a / x /  / 1999"}));
    EXPECT_THROW(KeysOf({}, kRecord), UsageError);
}

}  // namespace
}  // namespace quillory
