#include <zorby/conditions/ZorbySearch.h>

#include <gtest/gtest.h>

#include <tests/zorby/format/Dictionaries.h>

using namespace zorby;

namespace {

class ZorbySearch : public Dictionaries {
protected:
    // A search all of whose fields are told apart by a number.
    static CZorbySearch Filled(int number) {
        const std::string suffix = std::to_string(number);
        return {"tree" + suffix,   "user" + suffix, number,         9, number + 1, "first" + suffix,
                "second" + suffix, "and" + suffix,  "with" + suffix};
    }
};

TEST_F(ZorbySearch, KeepsEachKindInTheSettings) {
    for (int type = 0; type < 3; ++type) {
        Filled(type + 1).ZorbyProfile(0, static_cast<eZORBYSEARCHTYPE>(type));
    }
    Filled(8).ZorbyProfile(0, static_cast<eZORBYSEARCHTYPE>(3));
    for (int type = 0; type < 3; ++type) {
        SCOPED_TRACE(type);
        const CZorbySearch saved = Filled(type + 1);
        CZorbySearch read = Filled(5);
        read.ZorbyProfile(1, static_cast<eZORBYSEARCHTYPE>(type));
        EXPECT_EQ(read.m_strTree, saved.m_strTree);
        EXPECT_EQ(read.m_strUser, saved.m_strUser);
        EXPECT_EQ(read.m_bMatchCase, saved.m_bMatchCase);
        EXPECT_EQ(read.m_bWholeWordsOnly, saved.m_bWholeWordsOnly);
        EXPECT_EQ(read.m_strLookFor1, saved.m_strLookFor1);
        const bool replaces = type == eFindAndReplace;
        EXPECT_EQ(read.m_bUsesAndOrNot, replaces ? 0 : 1);
        EXPECT_EQ(read.m_strAndOrNot, replaces ? "or" : saved.m_strAndOrNot);
        EXPECT_EQ(read.m_strLookFor2, replaces ? "second5" : saved.m_strLookFor2);
        EXPECT_EQ(read.m_strReplaceWith, replaces ? saved.m_strReplaceWith : "with5");
    }
}

TEST_F(ZorbySearch, MissingKeysReadAsDefaults) {
    CZorbySearch search = Filled(5);
    search.ZorbyProfile(1, eRemoveRecords);
    EXPECT_EQ(search.m_strAndOrNot, "or");
    EXPECT_EQ(search.m_bWholeWordsOnly, 1);
    EXPECT_EQ(search.m_bMatchCase, 0);
    EXPECT_EQ(search.m_strTree, "");
}

TEST(ZorbySearchTags, AreMadeReady) {
    const std::pair<const char*, const char*> users[] = {
        {"100-102,245", "100,101,102,,245"},
        {"100-102", "100,101,102,"},
        {"998-999-000", "998,999,-000"},
        {"000-001", "000,001,"},
        {"100-1", "100-1"},
        {"1000-001", "1000,001,"},
        {"102-100", "102-100"},  // nothing would be left
        {"102-100,", ","},
        {"", ""},
    };
    for (const auto& [typed, ready] : users) {
        CZorbySearch search;
        search.m_strUser = typed;
        search.PrepareForSearch();
        EXPECT_EQ(search.m_strUser, ready) << typed;
    }
    const std::pair<const char*, const char*> trees[] = {
        {"HLD,Title", "HLD, itle"}, {"HLDHLD", "HLDHLD"},     {"HHLD", " HLD"},
        {"HLHL", "    "},           {"hld AZ[@", "hld   [@"}, {"HL", "  "},
    };
    for (const auto& [tree, ready] : trees) {
        CZorbySearch search;
        search.m_strTree = tree;
        search.PrepareForSearch();
        EXPECT_EQ(search.m_strTree, ready) << tree;
    }
}

}  // namespace
