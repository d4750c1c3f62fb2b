#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <tests/zorby/copies/HoldingsData.h>

using namespace zorby;

namespace {

using Values = std::vector<std::pair<int, const char*>>;

CHoldingsDataRecord* Fill(CHoldingsDataRecord& record, const Values& values) {
    for (const auto& [id, text] : values) record.Add(ID(id), text, 1, 0);
    return &record;
}

TEST(HoldingsDataEditing, ReadsPathsOfElements) {
    const std::tuple<int, const char*, int> cases[] = {
        {0, R"(\250\258\)", 250},
        {1, R"(\250\258\)", 258},
        {2, R"(\250\258\)", -1},
        {-1, R"(\250\258\)", -1},
        {0, "", -1},
        {0, R"(\)", -1},
        {1, R"(\250\258)", -1},
        {0, "250", -1},
        {0, R"(1\250\)", 250},
        {1, R"(\250\\258\)", 0},
        {2, R"(\250\\258\)", 258},
        {0, R"(\ 25x\)", 25},
    };
    for (const auto& [position, path, id] : cases) {
        EXPECT_EQ(CHoldingsDataRecord::GetHoldingsID(position, path), id) << path << position;
    }
}

TEST(HoldingsDataEditing, AppendsToAValue) {
    const std::tuple<const char*, const char*, char, const char*> cases[] = {
        {"old", "new", '|', "252=y 251=old | new"}, {"old", "new", ',', "252=y 251=old, new"},
        {"old", "", '|', "252=y 251=old |"},        {"", " new ", '|', "252=y 251=new"},
        {nullptr, "new", '|', "252=y 251=new"},     {nullptr, "", '|', "252=y"},
    };
    for (const auto& [old, added, separator, expected] : cases) {
        CHoldingsDataRecord record(HT_FOLLETT_UNISON);
        Fill(record, {{252, "y"}});
        if (old) Fill(record, {{251, old}});
        record.AddToPreviousOrAddNew(ID(251), added, separator);
        EXPECT_EQ(Elements(record), expected) << old << separator << added;
    }
}

TEST(HoldingsDataEditing, SetsTheCallNumber) {
    const std::map<int, int> ids = {{1, 101},  {2, 152},  {3, 201},  {4, 302},  {5, 400},
                                    {6, 702},  {7, 502},  {8, 603},  {9, 603},  {10, 252},
                                    {11, 802}, {12, 900}, {13, 201}, {14, 952}, {15, 900}};
    for (int type = 0; type < 100; ++type) {
        SCOPED_TRACE(type);
        CHoldingsDataRecord record(static_cast<EHOLDINGSTYPE>(type));
        record.SetCallNumber(" X ");
        const auto found = ids.find(type);
        if (found == ids.end()) {
            EXPECT_EQ(record.GetSize(), 0);
            continue;
        }
        EXPECT_EQ(Elements(record), std::to_string(found->second) + "=X");
        record.SetCallNumber("Y");
        EXPECT_EQ(Elements(record), std::to_string(found->second) + "=Y");
        CHoldingsDataRecord other(static_cast<EHOLDINGSTYPE>(type));
        Fill(other, {{999, "z"}, {found->second, "old"}});
        other.SetCallNumber("Y");
        EXPECT_EQ(other.Get(ID(found->second)), "old");
    }
}

TEST(HoldingsDataEditing, WhatIsTakenOutIsTheCallers) {
    CHoldingsDataRecord record(HT_FOLLETT_UNISON);
    Fill(record, {{250, "a"}, {251, "b"}, {250, "c"}, {252, "d"}, {252, "e"}});
    EXPECT_EQ(record.DeleteElement(ID(250))->GetText(), "a");
    EXPECT_EQ(record.DeleteElement(ID(260)), nullptr);
    const CHoldingsDataElement* last = record.GetAt(3);
    EXPECT_EQ(record.DeleteElement(last).get(), last);
    const CHoldingsDataElement foreign;
    EXPECT_EQ(record.DeleteElement(&foreign), nullptr);
    EXPECT_EQ(Elements(record), "251=b 250=c 252=d");

    record.MarkElementForLaterDeletion(ID(252));
    record.MarkElementForLaterDeletion(ID(260));
    const auto marked = record.DeleteOnesMarkedForLaterDeletion();
    ASSERT_EQ(marked.size(), 1U);
    EXPECT_EQ(marked[0]->GetText(), "d");
    Fill(record, {{251, "f"}});
    EXPECT_EQ(record.DeleteAllElementsExcept({251U, 300U}).size(), 1U);
    EXPECT_EQ(Elements(record), "251=b 251=f");
    EXPECT_EQ(record.DeleteAllElementsExcept({}).size(), 2U);
}

class HoldingsDataMissing : public Dictionaries {};

TEST_F(HoldingsDataMissing, ElementsComeAndGo) {
    CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path() + "/");
    CHoldingsDataRecord record(HT_FOLLETT_2);
    Fill(record, {{201, "x"}, {200, ""}});
    record.AddMissingElements();
    EXPECT_EQ(Elements(record), "201=x 200= 200=");
    record.RemoveEmptyElements();
    EXPECT_EQ(Elements(record), "201=x");
    CHoldingsDataRecord unknown(HT_TYPE_2);
    unknown.AddMissingElements();
    EXPECT_EQ(unknown.GetSize(), 0);
}

TEST(HoldingsDataEditing, MovesValues) {
    struct MoveCase {
        Values values;
        const char* from;
        const char* to;
        std::vector<std::string> conditions;
        const char* kept;   // with others, sorted; null for no change
        const char* moved;  // without others
    };
    const std::string hasA = R"(OnlyWhen=1\\AnySubfield1=0\\HoldingsID1=250\\ContainsText1=A\\)";
    const MoveCase cases[] = {
        {{{250, "a"}, {251, "b"}},
         R"(\250\251\)",
         R"(\251\250\)",
         {},
         "251=a 250=b",
         "251=a 250=b"},
        {{{250, "a"}, {252, "c"}}, R"(\250\)", R"(\251\)", {}, "252=c 251=a", "251=a"},
        {{{250, "a"}, {251, "b"}}, R"(\250\)", R"(\251\)", {hasA}, "251=a", "251=a"},
        {{{250, "x"}, {251, "b"}}, R"(\250\)", R"(\251\)", {hasA}, nullptr, ""},
        {{{250, "x"}, {251, "b"}},
         R"(\250\251\)",
         R"(\251\260\)",
         {hasA, ""},
         "260=b 250=x",
         "260=b"},
        {{{250, ""}, {251, "b"}}, R"(\250\)", R"(\252\)", {}, "252= 251=b", "252="},
        {{{250, ""}, {251, "b"}}, R"(\250\)", R"(\252\)", {""}, nullptr, ""},
        {{{252, "c"}}, R"(\250\)", R"(\251\)", {}, nullptr, ""},
        {{{250, "a"}}, R"(\250\)", R"(\250\)", {}, nullptr, nullptr},
        {{{250, "a"}, {251, "b"}},
         R"(\250\-1\251\)",
         R"(\260\261\262\)",
         {},
         "260=a 251=b",
         "260=a"},
        {{{250, "a"}, {251, "b"}}, R"(\250\251\)", R"(\260\)", {}, "260=a 251=b", "260=a"},
        // The value goes to a further number, and then the target's old value goes away.
        {{{201, "a"}, {202, "b"}}, R"(\201\)", R"(\202\)", {}, "204=a", ""},
        {{{400, "a"}, {407, "b"}}, R"(\400\)", R"(\407\)", {}, "408=a", ""},
    };
    for (const MoveCase& test : cases) {
        SCOPED_TRACE(std::to_string(&test - cases) + ": " + test.from + " to " + test.to);
        for (const bool keepOthers : {true, false}) {
            SCOPED_TRACE(keepOthers ? "others kept" : "others removed");
            CHoldingsDataRecord record(HT_FOLLETT_UNISON);
            Fill(record, test.values)->AddHoldingItemHold(852, 'x', "held");
            const auto changed =
                record.ChangeElementsNewDR(test.from, test.to, test.conditions, keepOthers);
            const char* const expected = keepOthers ? test.kept : test.moved;
            ASSERT_EQ(changed == nullptr, expected == nullptr);
            EXPECT_EQ(record.GetSize(), static_cast<int>(test.values.size()));
            if (!changed) continue;
            changed->Sort();
            EXPECT_EQ(Elements(*changed), expected);
            EXPECT_EQ(changed->GetHolds().size(), 1U);
            EXPECT_EQ(changed->GetHoldingsType(), HT_FOLLETT_UNISON);
        }
    }
}

// With different sources and different targets, all moves happen at once.
TEST(HoldingsDataEditing, RandomMovesAreThoseOfAMap) {
    std::mt19937 random(5);
    std::vector<int> ids(10);
    std::iota(ids.begin(), ids.end(), 250);
    for (int round = 0; round < 500; ++round) {
        std::map<int, std::string> before;
        CHoldingsDataRecord record(HT_FOLLETT_UNISON);
        for (const int id : ids) {
            if (random() % 2 == 0) continue;
            before[id] = std::string(1, static_cast<char>('a' + random() % 3));
            record.Add(ID(id), before[id], 0, 0);
        }
        std::vector<int> to = ids;
        std::shuffle(ids.begin(), ids.end(), random);
        std::shuffle(to.begin(), to.end(), random);
        std::map<int, std::string> moved;
        std::map<int, std::string> after = before;
        std::string fromPath = "\\";
        std::string toPath = "\\";
        const std::size_t moves = random() % 6;
        for (std::size_t i = 0; i < moves; ++i) {
            fromPath += std::to_string(ids[i]) + "\\";
            toPath += std::to_string(to[i]) + "\\";
            if (!before.contains(ids[i])) continue;
            moved[to[i]] = before[ids[i]];
            after.erase(ids[i]);
        }
        for (const auto& [id, text] : moved) after[id] = text;
        const auto changed = record.ChangeElementsNewDR(fromPath, toPath, {}, 1);
        ASSERT_EQ(changed == nullptr, after == before) << fromPath << " to " << toPath;
        if (!changed) continue;
        std::map<int, std::string> found;
        for (int i = 0; i < changed->GetSize(); ++i) {
            found[changed->GetAt(i)->GetID()] = changed->GetAt(i)->GetText();
        }
        EXPECT_EQ(found, after) << fromPath << " to " << toPath;
        EXPECT_EQ(static_cast<std::size_t>(changed->GetSize()), after.size())
            << fromPath << " to " << toPath;
    }
}

}  // namespace
