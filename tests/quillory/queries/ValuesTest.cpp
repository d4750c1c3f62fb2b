#include <quillory/queries/Values.h>

#include <gtest/gtest.h>

#include <tests/quillory/Records.h>

namespace quillory {
namespace {

// "PLACE=VALUE" for each value, divided by blanks of their own: "|".
std::string ValuesOf(const Record& record, const char* places) {
    std::string text;
    ForEachValue(
        record, ParsePlaceSet(places).places, [&](const Place& place, std::string_view value) {
            text += (text.empty() ? "" : "|") + PlaceText(place) + "=" + std::string(value);
        });
    return text;
}

TEST(Values, OfAllKindsOfPlaces) {
    const TestRecord test(
        {kLeaderLine, "001x1", "006m  d", "006a1", "007cr", "0081234567", "24510$aOne /$cby",
         "650 0$aA$xB$aC", "651 4$aD", "650 1$xE", "9991", "CATfree", "LKR$aL"},
        '$');
    const std::pair<const char*, const char*> cases[] = {
        {"245", "245=One / by"},
        {"245a", "245 $a=One /"},
        {"650ax", "650 $a=A|650 $x=B|650 $a=C|650[2] $x=E"},
        {"650a, 650x", "650 $a=A|650 $a=C|650 $x=B|650[2] $x=E"},
        {"650[2]", "650[2]=E"},
        {"6XXa", "650 $a=A|650 $a=C|651 $a=D"},
        {"6XX[2]", "650[2]=E"},
        {"650/2, 245/1", "245/1=1|650/2=0|650[2]/2=1"},
        {"leader/06, 001", "leader/06=a|001=x1"},
        {"008/2-4", "008/02-04=345"},
        {"008/5-9", "008/05-09=67"},
        {"008/7", ""},
        {"008e/2", ""},
        {"008a/2", "008/02=3"},
        {"006m/03", "006/03=d"},
        {"006t/01", "006[2]/01=1"},
        {"007c", "007=cr"},
        {"007d", ""},
        {"999", "999="},
        {"999/1", ""},
        {"XXX[2]", "006[2]=a1|650[2]=E"},
    };
    for (const auto& [places, expected] : cases) {
        SCOPED_TRACE(places);
        EXPECT_EQ(ValuesOf(test.record, places), expected);
    }
}

TEST(Values, ALinkIsNoTextOfItsField) {
    const TestRecord test({kLeaderLine, "24510$6880-01$aOne /$cby", "88010$6245-01/$1"}, '$');
    EXPECT_EQ(ValuesOf(test.record, "245"), "245=One / by");
    EXPECT_EQ(ValuesOf(test.record, "2456"), "245 $6=880-01");
    EXPECT_EQ(ValuesOf(test.record, "880"), "880=");
}

std::string TextOf(ValueReader& reader, const Record& record, const char* places) {
    std::string text;
    reader.ForEach(record, ParsePlaceSet(places).places,
                   [&](const Place&, std::string_view utf8) { text += std::string(utf8) + "|"; });
    return text;
}

// A reader goes from record to record, each in its own character set.
TEST(ValueReader, GivesUtf8OfEachRecord) {
    const TestRecord marc8({kLeaderLine,
                            "24510$a\xE2"
                            "ete$b\x1B(3ABG",
                            "500  $aascii"},
                           '$');
    const TestRecord utf8({"LDR00000nam a2200000 a 4500", "24510$ae\xCC\x81t\xC3\xA9$bb"}, '$');
    const TestRecord invalid({"LDR00000nam a2200000 a 4500", "24510$a\xC3\xA9\xFF"}, '$');
    ValueReader reader;
    EXPECT_EQ(TextOf(reader, marc8.record, "245a, 500"), "\xC3\xA9te|ascii|");
    EXPECT_EQ(TextOf(reader, utf8.record, "245"), "\xC3\xA9t\xC3\xA9 b|");
    EXPECT_EQ(TextOf(reader, marc8.record, "245"), "\xC3\xA9te \xD8\xA1\xD8\xA2\xD8\xA7|");
    EXPECT_EQ(TextOf(reader, invalid.record, "245a"), "\xC3\xA9\xEF\xBF\xBD|");
    ValueReader latin1(kCharsetLatin1);
    EXPECT_EQ(TextOf(latin1, TestRecord({kLeaderLine, "500  $a\xE9"}, '$').record, "500a"),
              "\xC3\xA9|");
}

}  // namespace
}  // namespace quillory
