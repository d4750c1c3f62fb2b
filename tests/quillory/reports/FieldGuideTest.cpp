#include <quillory/jobs/Library.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/FieldGuide.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <tests/quillory/jobs/JobsFixture.h>

namespace quillory {
namespace {

class FieldGuides : public Jobs {
protected:
    FieldGuides() {
        LoadSettings();
        LoadDictionaries();
    }
};

bool IsExplained(const IndicatorDocument& indicator) {
    return !indicator.explanation.empty();
}

TEST_F(FieldGuides, EveryFieldInForceIsExplainedByItselfOrByItsIndicators) {
    for (unsigned tag = 1; tag < 1000; ++tag) {
        const auto field = DescribeField(tag, zorby::EDO_NameOnly, false);
        const bool isInForce = field && field->name.find("(obsolete)") == std::string::npos;
        const bool isExplained = !FieldGuide(tag).empty();
        if (isInForce) {
            EXPECT_TRUE(isExplained || std::ranges::any_of(field->indicators, IsExplained)) << tag;
            EXPECT_EQ(field->explanation, FieldGuide(tag)) << tag;
        } else {
            EXPECT_FALSE(isExplained) << tag;
        }
    }
}

TEST_F(FieldGuides, AnExplanationStandsBelowTheName) {
    const auto field = DescribeField(42, zorby::EDO_NameOnly, false);
    ASSERT_TRUE(field);
    const std::string text = ToText(*field);
    EXPECT_TRUE(text.starts_with("Authentication Code, not repeatable\n    A code for ")) << text;
    EXPECT_NE(JsonLine(*field).find(R"("explanation":"A code for the program)"), std::string::npos);
}

}  // namespace
}  // namespace quillory
