#include <quillory/rules/Rule.h>
#include <zorby/checking/RecordError.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quillory {
namespace {

TEST(RuleTable, EveryRuleIsTold) {
    std::set<std::string_view> names;
    for (const Rule& rule : Rules()) {
        SCOPED_TRACE(rule.name);
        EXPECT_TRUE(names.insert(rule.name).second);
        EXPECT_EQ(RuleNamed(rule.name), &rule);
        for (const std::string_view text :
             {rule.title, rule.words, rule.why, rule.example, rule.source}) {
            EXPECT_FALSE(text.empty());
        }
        EXPECT_EQ(rule.words.find("click"), rule.words.npos) << "there is no window";
    }
    EXPECT_EQ(RuleNamed("no-such-rule"), nullptr);
}

TEST(RuleTable, HasTheCodesOfTheLibrary) {
    for (int code = zorby::kFirstWordedErrorCode; code <= zorby::kLastWordedErrorCode; ++code) {
        EXPECT_EQ(RuleOf(static_cast<zorby::E_ERROR_CODE>(code)).code, code) << code;
    }
}

}  // namespace
}  // namespace quillory
