#include <quillory/repair/ChosenRepairs.h>

#include <gtest/gtest.h>

namespace quillory {
namespace {

TEST(WithChosen, MakesTheTickedRepairsOfOneField) {
    const Place first = Place::OfField("007", 1);
    const Place second = Place::OfField("007", 2);
    const std::vector<Repair> repairs{
        {.kind = RepairKind::Length, .place = second, .before = "vf", .after = "vf|||"},
        {.place = first.Positions(1, 1), .before = "F", .after = "f"},
        {.place = second.Positions(3, 4), .before = "||", .after = "bo"},
        {.kind = RepairKind::Left, .place = first.Positions(0, 0), .before = "v", .after = "x"},
    };
    const struct {
        std::vector<bool> chosen;
        Place field;
        const char* given;
        const char* result;
    } cases[] = {
        {{true, true, true, true}, first, "vFx", "vfx"},
        {{true, false, true, true}, first, "vFx", "vFx"},
        {{true, true, true, true}, second, "vf", "vf|bo"},
        {{true, false, false, false}, second, "vf", "vf|||"},
        {{false, true, true, true}, second, "vf", "vf"},  // no bytes where they would go
    };
    for (const auto& [chosen, field, given, result] : cases) {
        EXPECT_EQ(WithChosen(repairs, chosen, field, given), result)
            << PlaceText(field) << ' ' << given;
    }
}

}  // namespace
}  // namespace quillory
