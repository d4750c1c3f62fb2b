#include <quillory/reports/FoundRecord.h>

#include <gtest/gtest.h>

namespace quillory {
namespace {

TEST(FoundRecord, IsShownWithItsHits) {
    const std::vector<QueryHit> hits{
        {Place::OfField(245U, 1).Subfield('a'), "One \x1Btwo one", {{0, 3}, {9, 12}}},
        {Place::OfField(650U, 2), "Art", {}}};
    const FoundRecord found{"", 12, "x1", "One", hits};
    EXPECT_EQ(ToText(found, false),
              "     12  x1              245 $a     One <1B>two one\n"
              "     12  x1              650[2]     Art\n");
    EXPECT_EQ(ToText(found, true),
              "     12  x1              245 $a     \033[1m\033[31mOne\033[0m <1B>two "
              "\033[1m\033[31mone\033[0m\n"
              "     12  x1              650[2]     Art\n");
    const std::vector<QueryHit> none;
    EXPECT_EQ(ToText({"a.mrc", 1, "", "Title", none}, true),
              "a.mrc:       1                             Title\n");
    EXPECT_EQ(JsonLine(found),
              R"({"record":12,"control_number":"x1","title":"One","hits":[)"
              R"({"place":"245 $a","text":"One \u001btwo one","matches":["One","one"]},)"
              R"({"place":"650[2]","text":"Art"}]})"
              "\n");
}

}  // namespace
}  // namespace quillory
