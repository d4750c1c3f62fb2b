#include <quillory/faults/FaultCode.h>
#include <quillory/queries/PlaceSet.h>

#include <gtest/gtest.h>

#include <random>

namespace quillory {
namespace {

TEST(PlaceSet, IsReadAndShown) {
    const std::pair<const char*, const char*> readings[] = {
        {"245a", "245 $a"},
        {"245a, 650x", "245 $a, 650 $x"},
        {" ,245a 650x,,600-699, ", "245 $a, 650 $x, 600-699"},
        {"650[2] $x 008/35-37", "650[2] $x, 008/35-37"},
        {"245ab", "245ab"},
        {"245$ab", "245ab"},
        {"245 $aba", "245ab"},
        {"650[2]ax", "650[2]ax"},
        {"6XX", "6XX"},
        {"6xxa", "6XX $a"},
        {"6X0[3]/2", "6X0[3]/2"},
        {"00X/05", "00X/05"},
        {"XXX", "XXX"},
        {"600-699ax", "600-699ax"},
        {"600-699[2] $x", "600-699[2] $x"},
        {"001-005", "001-005"},
        {"6000699", "600069"},
        {"leader/06, 245/1", "leader/06, 245/1"},
        {"006m/05", "006m/05"},
    };
    for (const auto& [text, shown] : readings) {
        SCOPED_TRACE(text);
        const PlaceSetReading reading = ParsePlaceSet(text);
        EXPECT_FALSE(reading.fault);
        EXPECT_EQ(PlaceSetText(reading.places), shown);
        EXPECT_EQ(ParsePlaceSet(PlaceSetText(reading.places)).places, reading.places);
    }
}

TEST(PlaceSet, NamesWhatItCantRead) {
    const struct {
        const char* text;
        FaultCode code;
        std::size_t offset;
        std::size_t length;
    } faults[] = {
        {"", FaultCode::kNoPlaceGiven, 0, 0},
        {" , ", FaultCode::kNoPlaceGiven, 3, 0},
        {"245a, 24x5y$, 650", FaultCode::kNoPlace, 6, 6},
        {"24", FaultCode::kNoPlace, 0, 2},
        {"245 a", FaultCode::kNoPlace, 4, 1},
        {"600-69x", FaultCode::kNoPlace, 0, 7},
        {"650 699-600", FaultCode::kRangeBackwards, 4, 7},
        {"008ab", FaultCode::kNoPlace, 0, 5},
        {"245/1a", FaultCode::kNoPlace, 0, 6},
        {"245a-c", FaultCode::kNoPlace, 0, 6},
        {"XXX/05", FaultCode::kNoPlace, 0, 6},
        {"\xC3\x28", FaultCode::kNoPlace, 0, 2},
    };
    for (const auto& expected : faults) {
        SCOPED_TRACE(expected.text);
        const PlaceSetReading reading = ParsePlaceSet(expected.text);
        EXPECT_EQ(reading.fault.code, expected.code);
        EXPECT_EQ(reading.fault.offset, expected.offset);
        EXPECT_EQ(reading.fault.length, expected.length);
        EXPECT_TRUE(reading.places.Empty());
    }
}

TEST(PlaceSet, CoversTags) {
    const auto covers = [](const char* places, std::string_view tag) {
        return ParsePlaceSet(places).places.Covers(tag);
    };
    EXPECT_TRUE(covers("100, 6XX", "650"));
    EXPECT_TRUE(covers("XXX", "CAT"));
    EXPECT_FALSE(covers("6XX", "560"));
    EXPECT_TRUE(covers("600-699", "600"));
    EXPECT_TRUE(covers("600-699", "699"));
    EXPECT_FALSE(covers("600-699", "700"));
    EXPECT_FALSE(covers("000-999", "6A0"));
}

TEST(PlaceSet, AnyTextIsReadOrRefused) {
    std::mt19937 random(12);
    const std::string signs = "0012456789aXx-[]/$ ,leadr\x1F\xE9";
    std::uniform_int_distribution<std::size_t> sign(0, signs.size() - 1);
    int sets = 0;
    for (int round = 0; round < 100000; ++round) {
        std::string text = round % 2 == 0 ? "6XX" : "600-699";
        for (int left = round % 9; left > 0; --left) text += signs[sign(random)];
        const PlaceSetReading reading = ParsePlaceSet(text);
        ASSERT_LE(reading.fault.offset + reading.fault.length, text.size()) << text;
        if (reading.fault) continue;
        ++sets;
        const std::string shown = PlaceSetText(reading.places);
        ASSERT_EQ(PlaceSetText(ParsePlaceSet(shown).places), shown) << text;
    }
    EXPECT_GT(sets, 1000);
}

TEST(TextFault, IsShownUnderItsText) {
    const TextFault inMiddle{{FaultCode::kQueryNotUtf8}, 5, 4};
    EXPECT_TRUE(CaretText("has \xC3\xA9nop x", {{FaultCode::kNoPlaceGiven}, 4, 5})
                    .ends_with("\n    has \xC3\xA9nop x\n        ^~~~"));
    EXPECT_TRUE(
        CaretText("one\ntwo\x1B[ three\nfour", inMiddle).ends_with("\n    two?[ three\n     ^~~~"));
    EXPECT_TRUE(CaretText("", inMiddle).ends_with("\n    \n    ^"));
    const std::string longText = std::string(1000, 'a') + "b" + std::string(1000, 'c');
    const std::string shown = CaretText(longText, {{FaultCode::kNoPlaceGiven}, 1000, 1});
    EXPECT_LT(shown.size(), 500U);
    EXPECT_EQ(shown.substr(shown.size() - 61), std::string(60, ' ') + "^");
}

}  // namespace
}  // namespace quillory
