#include <quillory/sets/RecordDifference.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

// "-" and "+" before what only one of the records has; "$" for the delimiter.
std::string Difference(const Lines& before, const Lines& after, const std::string& ignored = "") {
    const PlaceSet places = ParsePlaceSet(ignored).places;
    ComparableRecord one(kCharsetAuto, places);
    ComparableRecord other(kCharsetAuto, places);
    one.Set(TestRecord(before, '$').record);
    other.Set(TestRecord(after, '$').record);
    std::string text;
    for (const FieldChange& change : Differences(one, other)) {
        if (change.isBefore) text += "-" + change.tag + change.before + " ";
        if (change.isAfter) text += "+" + change.tag + change.after + " ";
    }
    EXPECT_EQ(text.empty(), one.Fields() == other.Fields());
    std::ranges::replace(text, '\037', '$');
    return text;
}

TEST(RecordDifference, NamesJustWhatDiffers) {
    const Lines record{"001a", "24510$aOld", "500  $aX", "500  $aY", "650 0$aZ"};
    EXPECT_EQ(Difference(record, record), "");
    EXPECT_EQ(Difference(record, {"001a", "24510$aNew", "500  $aX", "500  $aY", "650 0$aZ"}),
              "-24510$aOld +24510$aNew ");
    EXPECT_EQ(Difference(record, {"001a", "24510$aOld", "500  $aY", "650 0$aZ"}), "-500  $aX ");
    EXPECT_EQ(Difference(record, {"001a", "24510$aOld", "500  $aX", "500  $aY", "600  $aN",
                                  "650 0$aZ", "856  $u"}),
              "+600  $aN +856  $u ");
    EXPECT_EQ(Difference(record, {"001a", "24510$aOld", "500  $aY", "500  $aX", "650 0$aZ"}),
              "-500  $aX +500  $aX ");
    EXPECT_EQ(Difference({}, {"245  $a"}), "+245  $a ");
}

TEST(RecordDifference, CharacterSetsAndWhatBelongsToTheFileMakeNone) {
    EXPECT_EQ(Difference({"LDR00100nam a2200055 a 4500", "245  $aB\xC3\xA9"},
                         {"LDR00200nam  2200077 a 4500",
                          "245  $aB\xE2"
                          "e"}),
              "");
    EXPECT_EQ(Difference({"LDR00100nam a2200055 a 4500", "245  $aBe\xCC\x81"},
                         {"LDR00100nam a2200055 a 4500", "245  $aB\xC3\xA9"}),
              "");
    EXPECT_EQ(Difference({"LDR00000nam a2200000 a 4500"}, {"LDR00000cam a2200000 a 4500"}),
              "-LDR     nam  22      a 4500 +LDR     cam  22      a 4500 ");
}

TEST(RecordDifference, PlacesCanBeLeftOut) {
    const Lines before{"005x", "008240109s", "24510$aA$cB", "900  $a", "650 0$aX", "650 0$aY"};
    const Lines after{"008250109s", "24500$aA$cC", "650 0$aX", "650 0$aZ"};
    EXPECT_EQ(Difference(before, after, "005, 9XX, 008/00-05, 245c, 245/1, 650[2]"), "");
    EXPECT_EQ(Difference(before, after, "005, 9XX, 008/02-05, 245c, 245/1, 650[2]"),
              "-00824    s +00825    s ");
}

// Whatever fields come and go, the second record is the first one with the changes.
TEST(RecordDifference, OfRandomRecordsExplainsAll) {
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        Lines before;
        Lines after;
        for (auto i = random() % 30; i > 0; --i) {
            const std::string field =
                "50" + std::to_string(random() % 3) + "  $a" + std::to_string(random() % 4);
            if (random() % 4 != 0) before.push_back(field);
            if (random() % 4 != 0) after.push_back(field);
        }
        ComparableRecord one(kCharsetAuto, {});
        ComparableRecord other(kCharsetAuto, {});
        one.Set(TestRecord(before, '$').record);
        other.Set(TestRecord(after, '$').record);
        Lines fields = before;
        for (const FieldChange& change : Differences(one, other)) {
            const auto asLine = [](const std::string& tag, std::string content) {
                std::ranges::replace(content, '\037', '$');
                return tag + content;
            };
            if (change.isBefore) {
                const auto at = std::ranges::find(fields, asLine(change.tag, change.before));
                ASSERT_NE(at, fields.end()) << round;
                fields.erase(at);
            }
            if (change.isAfter) fields.push_back(asLine(change.tag, change.after));
        }
        std::ranges::sort(fields);
        std::ranges::sort(after);
        EXPECT_EQ(fields, after) << round;
    }
}

// More fields than any record of ISO 2709 has: no wait, and no memory without end.
TEST(RecordDifference, OfVeryLongRecordsIsFoundAtOnce) {
    Lines before;
    Lines after;
    for (int i = 0; i < 20000; ++i) {
        before.push_back("500  $a" + std::to_string(i));
        after.push_back("501  $a" + std::to_string(i));
    }
    EXPECT_GT(Difference(before, after).size(), 400000U);
}

}  // namespace
}  // namespace quillory
