#include <quillory/rules/FormatTable.h>
#include <quillory/rules/FormatTexts.h>

#include <gtest/gtest.h>

#include <string>

namespace quillory {
namespace {

FormatTable Table(const std::string& rows) {
    return {rows, "table", false};
}

const std::string kFields =
    "# A table\n\n[fields]\ntag\tname\trepeatable\tmandatory\tlength\n"
    "008\tFixed\t0\t1\t40\n100\tName\t0\t0\t\n400\tOld name "
    "(obsolete)\t1\t0\t\n880\tOther\t1\t0\t\n";
const std::string kIndicators = "[indicators]\ntag\twhich\tvalue\tname\n";
const std::string kSubfields = "[subfields]\ntag\tcode\tname\trepeatable\n";
const std::string kPositions = "[positions]\nfield\tpositions\telement\tcodes\tobsolete\n";

TEST(FormatTable, HoldsWhatItsRowsSay) {
    const FormatTable table = Table(
        kFields + kIndicators + "100\t1\t#\tNone\n100\t1\t0-2\tCount\n100\t2\t7\tX (obsolete)\n" +
        kSubfields + "any\t7\tOf all\t1\n100\ta\tName\t0\n100\tb\tPart (obsolete)\t1\n" +
        kPositions + "leader\t05\tStatus\tc#\td\n008\t18-27\tUndefined\t#\t\n");
    const FieldRule& name = table.Rules().Of(100);
    EXPECT_TRUE(name.isKnown && !name.isRepeatable && !name.isObsolete);
    EXPECT_TRUE(table.Rules().Of(400).isObsolete && table.Rules().Of(400).isRepeatable);
    EXPECT_FALSE(table.Rules().Of(700).isKnown);
    std::string values;
    name.indicators[0].current.ForEach(
        [&](unsigned char value) { values += static_cast<char>(value); });
    EXPECT_EQ(values, " 012");
    EXPECT_TRUE(name.indicators[1].obsolete.Has('7') && name.indicators[1].current.IsEmpty());
    EXPECT_TRUE(name.codes.Has('a') && !name.repeatableCodes.Has('a') &&
                !name.obsoleteCodes.Has('a'));
    EXPECT_TRUE(name.codes.Has('b') && name.repeatableCodes.Has('b') &&
                name.obsoleteCodes.Has('b'));
    EXPECT_TRUE(name.repeatableCodes.Has('7') && table.Rules().Of(400).codes.Has('7'));
    EXPECT_EQ(table.Rules().Of(880).role, kRoleLinked);
    EXPECT_EQ(table.LengthOf(8), 40U);
    EXPECT_EQ(table.LengthOf(5), 0U);
    EXPECT_TRUE(table.IsMandatory(8) && !table.IsMandatory(100));
    ASSERT_EQ(table.Positions().size(), 2U);
    const CodedPositions& status = table.Positions()[0];
    EXPECT_EQ(status.tag, 0U);
    EXPECT_TRUE(status.first == 5 && status.last == 5 && status.element == "Status");
    EXPECT_TRUE(status.current.Has('c') && status.current.Has(' ') && status.obsolete.Has('d'));
    const CodedPositions& undefined = table.Positions()[1];
    EXPECT_TRUE(undefined.tag == 8 && undefined.first == 18 && undefined.last == 27);
    EXPECT_TRUE(undefined.IsUndefined() && undefined.obsolete.IsEmpty());
}

TEST(FormatTable, RefusesRowsThatDoNotFit) {
    const struct {
        std::string rows;
        const char* fault;
    } kCases[] = {
        {"100\ta\n", "table:1: no section before \"100\ta\""},
        {"[notes]\n", "table:1: no section \"[notes]\""},
        {"[fields]\ntag\tname\n", "table:2: not the columns of the section: \"tag\tname\""},
        {kFields + "100\tAgain\t0\t0\t\n", "table:9: no tag, or a second row for it: \"100\""},
        {kFields + "10X\tName\t0\t0\t\n", "table:9: no tag, or a second row for it: \"10X\""},
        {kFields + "110\tName\t2\t0\t\n", "table:9: neither 0 nor 1 \"2\""},
        {kFields + "110\tName\t0\t0\t40\n", "table:9: no control field \"110\""},
        {kFields + "110\tName\t0\n", "table:9: 3 columns instead of 5"},
        {kIndicators + "100\t1\t#\tX\n", "table:3: no field \"100\""},
        {kFields + kIndicators + "100\t3\t#\tX\n", "table:11: no indicator \"3\""},
        {kFields + kIndicators + "100\tx\t#\tX\n", "table:11: no number \"x\""},
        {kFields + kIndicators + "100\t1\t9-0\tX\n", "table:11: not one character \"9-0\""},
        {kFields + kSubfields + "100\ta\tX\t0\n100\ta\tX\t0\n", "table:12: twice: \"a\""},
        {kFields + kSubfields + "100\tab\tX\t0\n", "table:11: not one character \"ab\""},
        {kSubfields + "any\t7\tX\t0\n", "table:3: one of all fields, and not repeatable: \"7\""},
        {kPositions + "245\t00\tX\ta\t\n", "table:3: no control field \"245\""},
        {kPositions + "008\t07-06\tX\ta\t\n", "table:3: no positions \"07-06\""},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.fault);
        try {
            Table(row.rows);
            ADD_FAILURE() << "it is taken";
        } catch (const FormatTableError& error) {
            EXPECT_STREQ(error.what(), row.fault);
        }
    }
}

// Every field of the program's own tables can be used.
TEST(FormatTable, TablesOfTheFormatsAreWhole) {
    const struct {
        const char* name;
        std::string_view text;
        std::size_t length;
        unsigned fields;
    } kCases[] = {{"authority", kAuthorityTable, 40, 146},
                  {"classification", kClassificationTable, 14, 47},
                  {"community", kCommunityTable, 15, 81},
                  {"holdings", kHoldingsTable, 32, 54}};
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.name);
        const FormatTable table(row.text, row.name, false);
        EXPECT_EQ(table.LengthOf(8), row.length);
        EXPECT_TRUE(table.IsMandatory(8));
        unsigned fields = 0;
        for (unsigned tag = 1; tag < kTags; ++tag) {
            const FieldRule& rule = table.Rules().Of(tag);
            if (!rule.isKnown) continue;
            ++fields;
            if (tag < kFirstDataTag || rule.role == kRoleLinked) continue;
            EXPECT_FALSE(rule.codes.IsEmpty()) << tag;
            for (const IndicatorRule& indicator : rule.indicators) {
                EXPECT_FALSE(indicator.current.IsEmpty()) << tag;
                indicator.obsolete.ForEach([&](unsigned char value) {
                    EXPECT_FALSE(indicator.current.Has(static_cast<char>(value))) << tag;
                });
            }
        }
        EXPECT_EQ(fields, row.fields);
        for (const CodedPositions& positions : table.Positions()) {
            EXPECT_FALSE(positions.current.IsEmpty()) << positions.element;
            const std::size_t length = positions.tag == 0 ? 24 : table.LengthOf(positions.tag);
            EXPECT_LT(positions.last, length) << positions.element;
        }
    }
}

}  // namespace
}  // namespace quillory
