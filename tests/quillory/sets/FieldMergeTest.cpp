#include <quillory/sets/FieldMerge.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

const Lines kMine{"001a", "24510$aTitle", "650 0$aRivers", "9XXodd", "650 0$aSeas", "856  $ux"};
const Lines kOther{"001b",         "500  $aNote",   "650 0$aSeas", "650 0$aLakes",
                   "650 0$aLakes", "651 0$aFrance", "100  $aName"};

std::string Merged(const std::string& which, MergeMode mode, const Lines& mine = kMine) {
    TestRecord record(mine, '$');
    const TestRecord other(kOther, '$');
    record.record.bytes = "as it was";
    const bool isChanged =
        MergeFields(record.record, other.record, ParsePlaceSet(which).places, mode);
    EXPECT_EQ(isChanged, record.record.bytes.empty()) << which;
    return isChanged ? FieldsOf(record.record) : "unchanged";
}

TEST(FieldMerge, AddsWhatIsNotThereInItsPlace) {
    EXPECT_EQ(Merged("XXX", MergeMode::Add, {"24510$aTitle", "650 0$aRivers", "856  $ux"}),
              "001b\n100  $aName\n24510$aTitle\n500  $aNote\n650 0$aRivers\n650 0$aSeas\n"
              "650 0$aLakes\n651 0$aFrance\n856  $ux");
    EXPECT_EQ(Merged("6XX", MergeMode::Add),
              "001a\n24510$aTitle\n650 0$aRivers\n9XXodd\n650 0$aSeas\n650 0$aLakes\n"
              "651 0$aFrance\n856  $ux");
    EXPECT_EQ(Merged("600-649, 700", MergeMode::Add), "unchanged");
}

TEST(FieldMerge, ReplacesTheFieldsOfATag) {
    EXPECT_EQ(Merged("650", MergeMode::Replace),
              "001a\n24510$aTitle\n650 0$aSeas\n650 0$aLakes\n650 0$aLakes\n9XXodd\n856  $ux");
    EXPECT_EQ(Merged("856 500", MergeMode::Replace),
              "001a\n24510$aTitle\n500  $aNote\n650 0$aRivers\n9XXodd\n650 0$aSeas\n856  $ux");
    EXPECT_EQ(Merged("100", MergeMode::Replace, {"100  $aName"}), "unchanged");
}

TEST(FieldMerge, AddsOnlyWhatIsMissing) {
    EXPECT_EQ(Merged("6XX", MergeMode::Missing),
              "001a\n24510$aTitle\n650 0$aRivers\n9XXodd\n650 0$aSeas\n651 0$aFrance\n856  $ux");
    EXPECT_EQ(Merged("650", MergeMode::Missing, {}), "650 0$aSeas\n650 0$aLakes");
}

}  // namespace
}  // namespace quillory
