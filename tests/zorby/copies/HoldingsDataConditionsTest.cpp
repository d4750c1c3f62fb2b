#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <gtest/gtest.h>

#include <array>
#include <tests/zorby/copies/HoldingsData.h>

using namespace zorby;

namespace {

COnlyWhenState Condition(const std::string& text) {
    COnlyWhenState state;
    state.InitializeOnlyWhenState("", text);
    return state;
}

constexpr const char* kJoiningTests[] = {"Advanced=0", R"(Advanced=1\\BothConditions=1)",
                                         R"(Advanced=1\\BothConditions=0)"};

TEST(HoldingsDataConditions, AnElementIsTestedOnlyUnderItsNumber) {
    struct TestCase {
        int id;
        int matchCase;
        const char* pattern;
        std::array<int, 5> results;  // by type; 4 is no type
    };
    CHoldingsDataElement history;
    history.Create(ID(250), "History*", 0);
    const TestCase cases[] = {
        {251, 0, "x", {0, 0, 0, 0, 0}},      {250, 0, "x", {0, 1, 0, 1, 1}},
        {250, 0, "HIST*", {1, 0, 0, 1, 0}},  {250, 1, "HIST*", {0, 1, 0, 1, 1}},
        {250, 1, R"(y\*)", {1, 0, 0, 1, 0}}, {250, 0, "", {0, 1, 0, 1, 1}},
    };
    for (const TestCase& test : cases) {
        for (int type = 0; type < 5; ++type) {
            EXPECT_EQ(
                history.OnlyWhenElementMeetsCondition(ID(test.id), test.matchCase, test.pattern,
                                                      static_cast<CONTAIN_TYPE>(type)),
                test.results[static_cast<std::size_t>(type)])
                << test.id << " " << test.pattern << " " << type;
        }
    }
    CHoldingsDataElement empty;
    empty.Create(ID(250), "", 0);
    EXPECT_EQ(empty.OnlyWhenElementMeetsCondition(ID(250), 0, "*", CT_CONTAINS), 0);
    EXPECT_EQ(empty.OnlyWhenElementMeetsCondition(ID(250), 0, "", CT_EMPTY_OR_MISSING), 1);
}

TEST(HoldingsDataConditions, ARecordIsTestedByItsElements) {
    struct TestCase {
        int any;
        int id;
        const char* pattern;
        std::array<int, 5> results;
    };
    CHoldingsDataRecord record(HT_FOLLETT_UNISON);
    record.Add(ID(250), "History", 0, 0);
    record.Add(ID(252), "", 1, 0);
    record.Add(ID(250), "", 1, 0);
    const TestCase cases[] = {
        {0, 250, "hist", {1, 0, 0, 1, 0}}, {0, 250, "x", {0, 1, 0, 1, 0}},
        {0, 251, "x", {0, 1, 1, 0, 0}},    {0, 252, "*", {0, 1, 1, 0, 0}},
        {1, 252, "hist", {1, 0, 0, 1, 0}}, {1, 250, "x", {0, 1, 0, 1, 0}},
    };
    for (const TestCase& test : cases) {
        for (int type = 0; type < 5; ++type) {
            EXPECT_EQ(record.OnlyWhenRecordMeetsCondition(
                          test.any, 0, test.pattern, static_cast<CONTAIN_TYPE>(type), ID(test.id)),
                      test.results[static_cast<std::size_t>(type)])
                << test.any << " " << test.id << " " << test.pattern << " " << type;
        }
    }
    const CHoldingsDataRecord none(HT_FOLLETT_UNISON);
    for (int type = 0; type < 4; ++type) {
        EXPECT_EQ(
            none.OnlyWhenRecordMeetsCondition(1, 0, "*", static_cast<CONTAIN_TYPE>(type), ID(250)),
            type == CT_DOES_NOT_CONTAIN || type == CT_EMPTY_OR_MISSING)
            << type;
    }
}

TEST(HoldingsDataConditions, TestsAreJoined) {
    CHoldingsDataRecord record(HT_FOLLETT_UNISON);
    record.Add(ID(250), "Yes", 0, 0);
    CHoldingsDataElement& element = *record.GetAt(0);
    for (std::size_t joining = 0; joining < std::size(kJoiningTests); ++joining) {
        for (const bool first : {false, true}) {
            for (const bool second : {false, true}) {
                const std::string text =
                    std::string(R"(OnlyWhen=1\\)") + kJoiningTests[joining] +
                    R"(\\AnySubfield1=0\\AnySubfield2=0\\HoldingsID1=250\\HoldingsID2=250\\)" +
                    R"(MatchCase1=1\\ContainsText1=)" + (first ? "Yes" : "yes") +
                    R"(\\MatchCase2=0\\ContainsText2=)" + (second ? "yes" : "no") + R"(\\)";
                const COnlyWhenState state = Condition(text);
                const bool holds = std::array{first, first && second, first || second}[joining];
                EXPECT_EQ(record.OnlyWhenRecord(state), holds ? &record : nullptr) << text;
                EXPECT_EQ(element.OnlyWhenElement(state, 1), holds ? &element : nullptr) << text;
            }
        }
    }
}

TEST(HoldingsDataConditions, WithoutTestsTheNumberDecides) {
    CHoldingsDataRecord record(HT_FOLLETT_UNISON);
    COnlyWhenState state = Condition(R"(ContainsText1=x\\)");
    EXPECT_EQ(record.OnlyWhenRecord(state), &record);

    CHoldingsDataElement element;
    element.Create(ID(250), "", 0);
    EXPECT_EQ(element.OnlyWhenElement(state, 0), nullptr);
    state.parsedHoldingsID = ID(250);
    EXPECT_EQ(element.OnlyWhenElement(state, 0), &element);
    EXPECT_EQ(element.OnlyWhenElement(state, 1), nullptr);

    // Any element is any element of a record, but not of an element.
    state = Condition(R"(OnlyWhen=1\\AnySubfield1=1\\ContainType1=2\\)");
    EXPECT_EQ(element.OnlyWhenElement(state, 0), nullptr);
    EXPECT_EQ(record.OnlyWhenRecord(state), &record);
    state.first.holdingsID = ID(250);
    EXPECT_EQ(element.OnlyWhenElement(state, 0), &element);
    EXPECT_EQ(element.OnlyWhenElement(state, 1), nullptr);
}

}  // namespace
