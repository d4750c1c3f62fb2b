#include <quillory/places/Place.h>

#include <gtest/gtest.h>

#include <random>

namespace quillory {
namespace {

struct Reading {
    const char* text;
    const char* shown;  // null if it is no place
};

TEST(Place, IsReadAndShown) {
    constexpr const char* kNone = nullptr;
    const Reading readings[] = {
        {"245", "245"},
        {"245a", "245 $a"},
        {"245$a", "245 $a"},
        {"245 $a", "245 $a"},
        {"245[2]a", "245[2] $a"},
        {"650[2] $x", "650[2] $x"},
        {"650[1]a", "650 $a"},
        {"2459", "245 $9"},
        {"245/1", "245/1"},
        {"245[3]/2", "245[3]/2"},
        {"245#", "245 $#"},
        {"001", "001"},
        {"008/18", "008/18"},
        {"008/18-21", "008/18-21"},
        {"008/5-6", "008/05-06"},
        {"008A/18", "008a/18"},
        {"006m", "006m"},
        {"007[2]/04", "007[2]/04"},
        {"007[2]c/04", "007[2]c/04"},
        {"leader", "leader"},
        {"LDR/06", "leader/06"},
        {"ldr/5", "leader/05"},
        {"008/100", "008/100"},
        {"", kNone},
        {"24", kNone},
        {"24x", kNone},
        {"000", kNone},
        {"245ab", kNone},
        {"245$", kNone},
        {"245$$", kNone},
        {"245/0", kNone},
        {"245/3", kNone},
        {"245/1a", kNone},
        {"245[0]a", kNone},
        {"245[a", kNone},
        {"245[]a", kNone},
        {"245[-1]", kNone},
        {"245[99999999999]", kNone},
        {"245 a", kNone},
        {"245\x1F", kNone},
        {"245\xC3", kNone},
        {"001a", kNone},
        {"001$a", kNone},
        {"008/", kNone},
        {"008/21-18", kNone},
        {"008/18-", kNone},
        {"008/18-21-23", kNone},
        {"008/-1", kNone},
        {"008/99999999999", kNone},
        {"006mm/05", kNone},
        {"leader[2]/06", kNone},
        {"leaderx", kNone},
        {"2450", "245 $0"},
        {" 245", kNone},
        {"245 ", kNone},
    };
    for (const Reading& reading : readings) {
        SCOPED_TRACE(reading.text);
        const std::optional<Place> place = ParsePlace(reading.text);
        ASSERT_EQ(place.has_value(), reading.shown != nullptr);
        if (!place) continue;
        EXPECT_EQ(PlaceText(*place), reading.shown);
    }
}

// Whatever is read is shown so that it reads the same, and no text does harm.
TEST(Place, RandomTextsComeBack) {
    std::mt19937 random(20);
    const std::string signs = "0012456789aLDRldr[]/-$ x\x1F\xE9";
    std::uniform_int_distribution<std::size_t> sign(0, signs.size() - 1);
    std::uniform_int_distribution<std::size_t> size(3, 9);
    int places = 0;
    for (int round = 0; round < 200000; ++round) {
        std::string text = round % 2 == 0 ? "008" : "245";
        for (std::size_t left = size(random); left > 3; --left) text += signs[sign(random)];
        std::optional<Place> place = ParsePlace(text);
        if (!place) continue;
        ++places;
        if (place->occurrence == 1) place->occurrence = 0;
        ASSERT_EQ(ParsePlace(PlaceText(*place)), place) << text;
    }
    EXPECT_GT(places, 1000);
}

TEST(Place, OfOddTagsIsShownWithoutHarm) {
    EXPECT_EQ(PlaceText(Place::OfField("9x\x1B", 2).Subfield('\x07')), "9x?[2] $?");
    EXPECT_EQ(PlaceText(Place::OfField("")), "");
    EXPECT_EQ(PlaceText(Place::OfField("CAT").Indicator(2)), "CAT/2");
    EXPECT_EQ(Place::OfField("CAT").Number(), kNoTag);
    EXPECT_FALSE(Place::OfField("CAT").IsControl());
    EXPECT_TRUE(Place::OfLeader().IsControl());
    EXPECT_EQ(PlaceText(Place::OfField(7u, 2).Positions(4, 4)), "007[2]/04");
}

}  // namespace
}  // namespace quillory
