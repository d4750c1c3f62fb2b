#include <quillory/edits/RecordCopies.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <tests/quillory/holdings/HoldingsFixture.h>

namespace quillory {
namespace {

using State = EditSession::State;

// "852  $bMain\n961  $aVendor", and back.
State RecordOf(const std::string& lines) {
    State record{std::string(24, ' '), {}};
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);) {
        std::ranges::replace(line, '$', '\037');
        record.fields.push_back({line.substr(0, 3), line.substr(3), -1});
    }
    return record;
}

std::string BriefOf(const State& record) {
    std::string lines;
    for (const auto& [tag, content, given] : record.fields) {
        if (!lines.empty()) lines += '\n';
        lines += tag + content;
    }
    std::ranges::replace(lines, '\037', '$');
    return lines;
}

std::size_t IndexOf(const RecordCopies& copies, const std::string& name) {
    const auto found = std::ranges::find(copies.Elements(), name, &CopyElement::name);
    EXPECT_NE(found, copies.Elements().end()) << name;
    return static_cast<std::size_t>(found - copies.Elements().begin());
}

class RecordCopiesTest : public HoldingsFixture {};

TEST_F(RecordCopiesTest, AValueChangesItsSubfieldAndNothingElse) {
    const struct {
        const char* system;
        std::size_t copy;
        const char* element;
        const char* text;
        const char* before;
        const char* after;
    } kRows[] = {
        {"1", 0, "Price", "5", "852  $bMain$pB1$94", "852  $bMain$pB1$95"},
        {"1", 1, "Bar code", " B3 ", "852  $pB1\n852  $pB2\n900  $aX",
         "852  $pB1\n852  $pB3\n900  $aX"},
        {"1", 0, "Location", "Main", "24510$aT\n8521 $hFIC$pB1", "24510$aT\n8521 $bMain$hFIC$pB1"},
        {"1", 0, "Price", "", "852  $bMain$94", "852  $bMain"},
        // What is no element stays, after the elements.
        {"1", 0, "Price", "5", "852  $zGift$94$uX", "852  $95$zGift$uX"},
        {"1", 0, "Price", "4", "852  $zGift$94$uX", "852  $zGift$94$uX"},
        // The last value of a copy takes the copy with it.
        {"1", 0, "Price", "", "24510$aT\n852  $94", "24510$aT"},
        {"1", 0, "Price", "", "852 1$zGift$94$uX", "852 1$zGift$uX"},
        // In a field of another tag, which comes or goes.
        {"4", 0, "Vendor", "Acme", "24510$aT\n852  $pB1\n998  $aX",
         "24510$aT\n852  $pB1\n961  $aAcme\n998  $aX"},
        {"4", 0, "Vendor", "", "852  $pB1\n961  $aAcme", "852  $pB1"},
        // Parts of one subfield, and several values.
        {"10", 0, "Vendor", "Acme", "852  $pB1", "852  $pB1$xFSC@cAcme"},
        {"3", 0, "Public note 1", "one ¦ two", "852  $pB1", "852  $pB1$zone$ztwo"},
        {"10", 0, "Vendor", "A@B", "852  $pB1", ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(std::string(row.before) + ", " + row.element);
        const RecordCopies copies(System(row.system));
        const auto outcome =
            copies.WithText(RecordOf(row.before), row.copy, IndexOf(copies, row.element), row.text);
        if (*row.after == '\0') {
            EXPECT_TRUE(outcome.fault);
            EXPECT_EQ(BriefOf(outcome.record), row.before);
        } else {
            EXPECT_FALSE(outcome.fault) << FaultText(*outcome.fault);
            EXPECT_EQ(BriefOf(outcome.record), row.after);
        }
    }
}

TEST_F(RecordCopiesTest, CopiesComeAndGo) {
    const RecordCopies basic(System("1"));
    EXPECT_EQ(BriefOf(basic.WithNew(RecordOf("24510$aT\n900  $aX"), "B1")),
              "24510$aT\n852  $pB1\n900  $aX");
    EXPECT_EQ(BriefOf(basic.WithNew(RecordOf("852  $pB1"), "")), "852  $pB1\n852  $p");
    EXPECT_EQ(BriefOf(basic.WithOneLike(RecordOf("8521 $bMain$hFIC$pB1$zGift"), 0, "B2")),
              "8521 $bMain$hFIC$pB1$zGift\n8521 $bMain$hFIC$pB2$zGift");
    const RecordCopies district(System("4"));
    EXPECT_EQ(BriefOf(district.Without(
                  RecordOf("852  $pB1\n852  $pB2\n961  $aAcme\n961  $aRoe\n998  $aX"), 0)),
              "852  $pB2\n961  $aRoe\n998  $aX");
    EXPECT_EQ(BriefOf(district.Without(RecordOf("852  $pB1"), 7)), "852  $pB1");
}

// Whatever the system: a value that is taken is read again, and so are all that were taken before.
TEST_F(RecordCopiesTest, WhatIsTypedIsReadAgainInEverySystem) {
    int systems = 0;
    for (int type = 1; type <= 40; ++type) {
        const auto* known = FindHoldingsType(std::to_string(type));
        if (known == nullptr || known->GetSize() == 0) continue;
        ++systems;
        const RecordCopies copies(System(std::to_string(type)));
        SCOPED_TRACE(copies.System().name);
        State record = copies.WithNew(RecordOf("24510$aT\n900  $aX"), "B1");
        ASSERT_EQ(copies.CopiesOf(record).size(), 1U);
        std::vector<std::string> texts = copies.CopiesOf(record)[0].texts;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            SCOPED_TRACE(copies.Elements()[i].name);
            const std::string text = "v" + std::to_string(i);
            const auto outcome = copies.WithText(record, 0, i, text);
            ASSERT_FALSE(outcome.fault) << FaultText(*outcome.fault);
            texts[i] = text;
            const auto now = copies.CopiesOf(outcome.record);
            ASSERT_EQ(now.size(), 1U) << BriefOf(outcome.record);
            EXPECT_EQ(now[0].texts, texts) << BriefOf(outcome.record);
            EXPECT_EQ(now[0].kept, "");
            record = outcome.record;
        }
    }
    EXPECT_GT(systems, 10);
}

}  // namespace
}  // namespace quillory
