#include <quillory/jobs/RepairReport.h>

#include <gtest/gtest.h>

namespace quillory {
namespace {

using zorby::CFPart;

Repair Of(CFPart part, const std::string& before, RepairKind kind = RepairKind::Replaced) {
    return {.kind = kind,
            .place = Place::OfField("008", 1).Positions(23, 23),
            .element = ElementOfPart(part),
            .before = before,
            .after = "|"};
}

TEST(RepairCounter, HasOneRowForWhatIsAlikeInRecordsOfAnyMaterial) {
    const Repair ofBook = Of(CFPart::CFP006BooksFormOfItem, "w");
    const Repair ofMusic = Of(CFPart::CFP006MusicSoundFormOfItem, "0");
    const Repair left = Of(CFPart::CFP006BooksFormOfItem, "1", RepairKind::Left);
    Repair inSecond = Of(CFPart::CFP006BooksFormOfItem, "2");
    inSecond.place.occurrence = 2;
    for (const bool hasRows : {true, false}) {
        RepairCounter counter(hasRows);
        counter.Count({ofBook});
        RepairCounter later(hasRows);
        later.Count({ofMusic, left, inSecond});
        later.Count({left});
        later.Count({});
        counter.Add(later);
        const RepairTotals totals = counter.Totals();
        EXPECT_EQ(totals.records, 4U);
        EXPECT_EQ(totals.recordsRepaired, 2U);
        EXPECT_EQ(totals.repaired, 3U);
        EXPECT_EQ(totals.left, 2U);
        ASSERT_EQ(totals.rows.size(), hasRows ? 2U : 0U);
        if (!hasRows) continue;
        const RepairRow& changed = totals.rows.begin()->second;
        const RepairRow& kept = totals.rows.rbegin()->second;
        EXPECT_EQ(changed.count, 3U);
        EXPECT_EQ(changed.first.before, "w");
        EXPECT_EQ(kept.count, 2U);
        EXPECT_EQ(kept.first.kind, RepairKind::Left);
    }
}

}  // namespace
}  // namespace quillory
