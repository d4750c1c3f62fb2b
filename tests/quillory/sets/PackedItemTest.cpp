#include <quillory/sets/PackedItem.h>
#include <quillory/sets/Packing.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

TEST(Packing, NumbersAndTextsComeBack) {
    const std::uint64_t numbers[] = {
        0, 1, 127, 128, 300, 1ULL << 35, std::numeric_limits<std::uint64_t>::max()};
    std::string packed;
    for (const std::uint64_t number : numbers) AppendNumber(number, packed);
    AppendText("", packed);
    AppendText(std::string(200, '\0'), packed);
    std::string_view rest = packed;
    for (const std::uint64_t number : numbers) EXPECT_EQ(TakeNumber(rest), number);
    EXPECT_EQ(TakeText(rest), "");
    EXPECT_EQ(TakeText(rest), std::string(200, '\0'));
    EXPECT_EQ(rest, "");
}

TEST(PackedItem, IsTheItemAgain) {
    const Lines lines{kLeaderLine, "001id", "24510\037aTitle", "9XXodd"};
    const std::string bytes = MarcOf(lines);
    zorby::CommFormatFields parts;
    ASSERT_FALSE(zorby::ReadCommFormat(bytes, parts));
    for (const bool isMarc : {true, false}) {
        SCOPED_TRACE(isMarc);
        Item item;
        item.Begin(kItemRecord, 90, isMarc ? std::string_view(bytes) : "=LDR ...");
        item.number = 7;
        item.record = {parts.leader, parts.fields, isMarc ? std::string_view(bytes) : ""};
        std::string packed;
        PackItem(item, 3, packed);
        Item again;
        EXPECT_EQ(UnpackItem(packed, again), 3U);
        EXPECT_EQ(again.number, 7U);
        EXPECT_EQ(again.offset, 90U);
        EXPECT_EQ(again.bytes, item.bytes);
        EXPECT_EQ(again.record.bytes, item.record.bytes);
        EXPECT_EQ(LinesOf(again.record), LinesOf(item.record));
    }
}

}  // namespace
}  // namespace quillory
