#include <quillory/faults/Errors.h>
#include <quillory/rules/CheckSettings.h>

#include <gtest/gtest.h>

#include <tests/quillory/Records.h>

namespace quillory {
namespace {

CheckSettings Read(std::string_view toml) {
    return ReadCheckSettings(toml, "check.toml",
                             {kCharsetUtf8, [](const Record&) { return true; }});
}

// What the own rules of a file say of a record, as lines.
std::string Said(std::string_view toml, const Lines& fields) {
    CheckSettings settings = Read(toml);
    const RuleWeights weights(settings.choice, settings.own.List());
    std::vector<Remark> remarks;
    RemarkSink sink(weights, remarks);
    settings.own.Check(TestRecord(fields, '$').record, sink);
    std::string text;
    for (const Remark& remark : remarks) text += RemarkLine(remark) + "\n";
    return text;
}

TEST(CheckSettingsTest, OwnRulesNameWhatTheConditionFound) {
    const std::string rule = "[[rule]]\nid = 'x'\nmessage = 'no {found} here'\n";
    const Lines record{"24510$aRivers$bof the North", "650 0$aRivers$aLakes", "650 0$aHills"};
    const struct {
        const char* keys;
        const char* said;
    } kCases[] = {
        {"where = 'has 651'", ""},
        {"where = '650a contains \"s\"'",
         "650 $a: warning: no Rivers here [x]\n650[2] $a: warning: no Hills here [x]\n"},
        {"where = '650a matches \"^r\"'", "650 $a: warning: no Rivers here [x]\n"},
        {"where = '650a matches \"^r\"'\nexact = true", ""},
        {"where = '245a = \"Rivers\" or 245a contains \"River\"'\nseverity = 'error'",
         "245 $a: error: no Rivers here [x]\n"},
        {"where = 'not has 651'\nseverity = 'note'", "note: no  here [x]\n"},
        {"where = 'has 650 and not has 856u'\nplace = '856u'", "856 $u: warning: no  here [x]\n"},
        {"where = '245a contains \"r\" and 650a contains \"Hills\"'\nplace = '650'",
         "650[2] $a: warning: no Hills here [x]\n"},
        {"where = 'has 650'\nplace = '650[2]'", "650[2]: warning: no Hills here [x]\n"},
        {"where = 'has 650'\nseverity = 'off'", ""},
        {"where = 'valid and not has 100'\nplace = '100'", "100: warning: no  here [x]\n"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.keys);
        EXPECT_EQ(Said(rule + row.keys, record), row.said);
    }
}

TEST(CheckSettingsTest, AChoiceOfTheCommandGoesBeforeThatOfTheFile) {
    const CheckSettings settings = Read(
        "only = ['isbn-invalid', 'x']\nskip = ['no-040']\n"
        "fail-on = 'error'\n[severity]\nno-001 = 'off'\n"
        "isbn-invalid = 'note'\nx = 'error'\n"
        "[[rule]]\nid = 'x'\nwhere = 'has 245'\nmessage = 'M'\n");
    EXPECT_EQ(settings.failsOn, Severity::Error);
    const RuleId own = settings.own.List().front().id;
    RuleWeights weights(settings.choice, settings.own.List());
    EXPECT_EQ(weights.Of(RuleId::IsbnInvalid), Severity::Note);
    EXPECT_EQ(weights.Of(own), Severity::Error);
    EXPECT_FALSE(weights.Wants(RuleId::UrlMalformed));
    weights.Choose({{{"url-malformed", "error"}}, {}, {"x"}});
    EXPECT_EQ(weights.Of(RuleId::UrlMalformed), Severity::Error);
    EXPECT_FALSE(weights.Wants(own));
    weights.Choose({{}, {"no-001", "x", "isbn-invalid"}, {}});
    EXPECT_EQ(weights.Of(RuleId::No001), Severity::Note);
    EXPECT_EQ(weights.Of(RuleId::IsbnInvalid), Severity::Note);
    EXPECT_EQ(weights.Of(own), Severity::Error);
    EXPECT_FALSE(weights.Wants(RuleId::UrlMalformed));
}

TEST(CheckSettingsTest, AFaultIsToldWithItsPlace) {
    const std::string rule = "[[rule]]\nid = 'x'\nwhere = 'has 245'\nmessage = 'M'\n";
    const struct {
        std::string toml;
        const char* text;
    } kCases[] = {
        {"skp = []",
         "check.toml:1:1: there is no key \"skp\" here; the keys are only, skip, "
         "fail-on, severity, rule; perhaps skip is meant"},
        {"only = 'isbn-invalid'", "check.toml:1:8: not a list of names of rules"},
        {"skip = ['no-040', 'isbn-invald']",
         "check.toml:1:19: there is no rule isbn-invald; "
         "perhaps isbn-invalid is meant"},
        {"[severity]\nisbn = 'note'", "check.toml:2:1: there is no rule isbn; perhaps isbn-"},
        {"[severity]\nno-040 = 'bad'", "check.toml:2:10: \"bad\" is none of error, warning, note"},
        {"[severity]\nno-040 = []", "check.toml:2:10: neither a text nor a number"},
        {"severity = 'note'", "check.toml:1:12: severity is a table"},
        {"fail-on = 'off'", "check.toml:1:11: fail-on is error, warning or note"},
        {"only = [", "check.toml:1:9: malformed TOML: "},
        {"rule = []", "check.toml:1:8: each rule is a table that begins with [[rule]]"},
        {"rule = [1]", "check.toml:1:9: each rule is a table that begins with [[rule]]"},
        {"[[rule]]\nid = 'x'\nwhere = 'has 245'", "check.toml:1:1: message: is missing; rule "},
        {"[[rule]]\nid = ''", "check.toml:2:6: id: is missing; rule needs it"},
        {rule + "were = 'x'", "check.toml:5:1: there is no key \"were\" here; "},
        {rule + "place = '24'", "check.toml:5:9: \"24\" is not a place"},
        {rule + "exact = 'yes'", "check.toml:5:9: exact is neither true nor false"},
        {rule + rule, "check.toml:6:6: another rule of this file has the same id"},
        {"[[rule]]\nid = 'No 1'\nwhere = 'has 245'\nmessage = 'M'\n", "check.toml:2:6: the id of"},
        {"[[rule]]\nid = 'no-040'\nwhere = 'has 245'\nmessage = 'M'\n",
         "check.toml:2:6: there is a rule of this id already"},
        {"[[rule]]\nid = 'x'\nwhere = 'hs 245'\nmessage = 'M'\n",
         "check.toml:3:9: expected a place"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.toml);
        try {
            Read(row.toml);
            ADD_FAILURE() << "no fault";
        } catch (const FileError& error) {
            EXPECT_EQ(std::string(error.what()).substr(0, std::string(row.text).size()), row.text);
        }
    }
}

}  // namespace
}  // namespace quillory
