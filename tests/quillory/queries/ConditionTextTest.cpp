#include <quillory/faults/FaultCode.h>
#include <quillory/queries/ConditionText.h>

#include <gtest/gtest.h>

#include <tests/quillory/Records.h>

namespace quillory {
namespace {

bool Holds(Query query, const Lines& lines) {
    const TestRecord record(lines, '$');
    return query.Matches(record.record);
}

const Lines kHistory{"001x", "650 0$aEurope$xHistory*", "651 0$a"};
const Lines kBare{"001x"};

TEST(ConditionText, SaysTheSameAsItsExpression) {
    const struct {
        const char* expression;
        bool ofHistory, ofBare;
    } cases[] = {
        {"650x like \"his*\"", true, false},
        {"650x contains 'y*'", true, false},
        {"not 650x contains 'x*'", true, true},
        {"650x like 'art' or 650 contains EUROPE", true, false},
        {"650x like 'art' and 650a like 'Europe'", false, false},
        {"has 651a", false, false},
        {"not has 651", true, true},
        {"has 001", true, true},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.expression);
        const auto text = ConditionTextOf(one.expression, false);
        ASSERT_TRUE(text);
        QueryReading reading = ParseCondition(*text);
        ASSERT_TRUE(reading.query);
        EXPECT_EQ(Holds(*ParseCondition(*text).query, kHistory), one.ofHistory);
        EXPECT_EQ(Holds(*ParseCondition(*text).query, kBare), one.ofBare);
    }
}

TEST(ConditionText, IsThatOfTheLibrary) {
    EXPECT_EQ(
        ConditionTextOf("650x like HISTORY", false),
        R"(Tag=650\\OnlyWhen=1\\AnySubfield1=0\\Subfield1=120\\HoldingsID1=0\\ContainType1=0\\)"
        R"(ContainsText1=HISTORY\\MatchCase1=0\\Advanced=0\\AnySubfield2=1\\Subfield2=0\\)"
        R"(HoldingsID2=0\\ContainType2=0\\ContainsText2=\\MatchCase2=0\\BothConditions=1\\)");
    const std::string exact = *ConditionTextOf("650x like HISTORY", true);
    EXPECT_FALSE(Holds(*ParseCondition(exact).query, kHistory));
    const char* inTree = R"(Tag=\650x\\\OnlyWhen=1\\AnySubfield1=0\\Subfield1=120\\)"
                         R"(ContainsText1=HISTORY\\)";
    EXPECT_TRUE(Holds(*ParseCondition(inTree).query, kHistory));
    EXPECT_TRUE(Holds(*ParseCondition(R"(Tag=650\\OnlyWhen=0\\)").query, kBare));
    EXPECT_TRUE(Holds(*ParseCondition(R"(OnlyWhen=1\\ContainsText1=europe\\)").query, kHistory));
}

TEST(ConditionText, RefusesOthers) {
    for (const char* expression :
         {"", "650x = 'a'", "650x like a and 651x like b", "650[2]x like a", "6XX like a",
          "count(650) > 1", "650x like a and 650x like b and 650x like c", "(650x like a)",
          "650x like 'a\\\\\\\\b'", "650x contains ''", "245/1 contains 1", "valid"}) {
        EXPECT_FALSE(ConditionTextOf(expression, false)) << expression;
    }
    for (const char* text : {"", "650x", R"(Tag=\HLD250\\\OnlyWhen=1\\)", "OnlyWhen=1\\\\\xFF",
                             R"(Tag=852\\OnlyWhen=1\\AnySubfield1=0\\HoldingsID1=101\\)",
                             R"(Tag=-99\\OnlyWhen=1\\)"}) {
        EXPECT_EQ(ParseCondition(text).fault.code, FaultCode::kConditionText) << text;
    }
}

}  // namespace
}  // namespace quillory
