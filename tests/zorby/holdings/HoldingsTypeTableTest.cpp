#include <zorby/holdings/HoldingsTypeTable.h>

#include <gtest/gtest.h>

#include <set>
#include <vector>

using namespace zorby;

namespace {

// All elements that have a role in a row.
std::vector<EHOLDINGSID> RolesIn(const HoldingsTypeRow& row) {
    std::vector<EHOLDINGSID> ids = {row.barCode, row.automatic, row.pair.first, row.pair.second,
                                    row.label.id};
    ids.insert(ids.end(), row.callNumber.parts.begin(), row.callNumber.parts.end());
    for (const auto& triple : row.triples) ids.insert(ids.end(), triple.begin(), triple.end());
    std::erase(ids, EHOLDINGSID{});
    return ids;
}

TEST(HoldingsTypeTable, EachRowAgreesWithItself) {
    for (const HoldingsTypeRow& row : HoldingsTypeTable()) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(&HoldingsRowOf(row.type), &row);
        const std::vector<EHOLDINGSID> roles = RolesIn(row);
        EXPECT_EQ(std::set(roles.begin(), roles.end()).size(), roles.size());
        for (const EHOLDINGSID id : roles) EXPECT_TRUE(row.Has(id)) << id;
        EXPECT_EQ(row.Has(row.callNumber.Whole()), row.tagsWithoutElements == nullptr);
        EXPECT_TRUE(!row.tagsWithoutElements || row.userDefinedFields);
        EXPECT_TRUE(!row.composite || row.composite->lead);
    }
}

TEST(HoldingsTypeTable, OnlyReleasesOfASystemShareElements) {
    for (int id = -1; id < 1100; ++id) {
        std::vector<EHOLDINGSTYPE> types;
        for (const HoldingsTypeRow& row : HoldingsTypeTable()) {
            if (row.Has(EHOLDINGSID{id})) types.push_back(row.type);
        }
        const HoldingsTypeRow* first = FindHoldingsRow(EHOLDINGSID{id});
        ASSERT_EQ(first == nullptr, types.empty()) << id;
        if (first == nullptr) continue;
        EXPECT_EQ(first->type, types.front()) << id;
        const bool isPair = types == std::vector{HT_FOLLETT, HT_FOLLETT_2} ||
                            types == std::vector{HT_LWLP, HT_LWLP_2} ||
                            types == std::vector{HT_TYPE_12, HT_TYPE_15};
        EXPECT_EQ(types.size(), isPair ? 2U : 1U) << id;
    }
}

TEST(HoldingsTypeTable, AnUnknownTypeHasNothing) {
    for (const int number : {-1, 0, 17, 99}) {
        const HoldingsTypeRow& row = HoldingsRowOf(EHOLDINGSTYPE{number});
        EXPECT_EQ(row.type, HT_NONE) << number;
        EXPECT_TRUE(RolesIn(row).empty()) << number;
        EXPECT_STREQ(row.callNumberPlace, "") << number;
    }
}

}  // namespace
