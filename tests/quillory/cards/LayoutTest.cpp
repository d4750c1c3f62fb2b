#include <quillory/cards/LabelLayout.h>
#include <quillory/cards/LabelMaker.h>
#include <quillory/cards/Sheet.h>
#include <zorby/settings/ProfileKeys.h>

#include <random>
#include <tests/quillory/cards/CardFixture.h>

namespace quillory {
namespace {

class Layout : public CardFixture {};

TEST_F(Layout, ACardHasItsMargins) {
    const PrintItem card{kUseSubject,
                         "1",
                         {{kBlockCallNumber, "PS1"},
                          {kBlockCallNumber, ".M6"},
                          {kBlockAddedHeading, "WHALING--FICTION."},
                          {kBlockMainHeading, "Melville, Herman, 1819-1891."},
                          {kBlockBody, "Moby Dick, or, The whale / by Herman Melville. — Urbana."},
                          {kBlockTracings, "1. Whaling."}}};
    const std::string expected =
        "┌───────────────────────────────────────────────────────────┐\n"
        "│                                                           │\n"
        "│                 WHALING--FICTION.                         │\n"
        "│  PS1        Melville, Herman, 1819-1891.                  │\n"
        "│  .M6            Moby Dick, or, The whale / by Herman      │\n"
        "│             Melville. — Urbana.                           │\n";
    const std::string shown = Shown(card);
    EXPECT_EQ(shown.substr(0, expected.size()), expected) << shown;
    const Lines lines = Divided(shown);
    ASSERT_EQ(lines.size(), 20U);
    EXPECT_EQ(lines[14], "│                 1. Whaling.                               │") << shown;
}

TEST_F(Layout, CallNumbersAreBrokenBeforeTheirCutters) {
    const std::pair<const char*, Lines> kCases[] = {
        {"PS1.M6", {"PS1.M6"}},
        {"PK3798.N313", {"PK3798", ".N313"}},
        {"DS318.84.N87", {"DS318.84", ".N87"}},
        {"Microfiche", {"Microfiche"}},
        {"PK37980.N3130.S8888888888", {"PK37980", ".N3130", ".S88888888", "88"}},
        {".N313.5", {".N313.5"}},
        {".N3131415926.5", {".N31314159", "26.5"}},
    };
    ColumnTypesetter typesetter;
    for (const auto& [part, expected] : kCases) {
        const PrintItem card{
            kUseMainEntry, "1", {{kBlockCallNumber, part}, {kBlockMainHeading, "Author."}}};
        const auto panels = LayOutCard(card, CardOptionsOfProfile(), typesetter);
        Lines lines;
        for (const PlacedLine& line : panels.front().lines) lines.push_back(line.text);
        lines.pop_back();  // the heading
        EXPECT_EQ(lines, expected) << part;
    }
}

TEST_F(Layout, WhatOneCardCannotHoldGoesOn) {
    std::string words;
    for (int i = 0; i < 300; ++i) words += "w" + std::to_string(i) + " ";
    PrintItem card{kUseMainEntry, "1", {{kBlockCallNumber, "PS1"}, {kBlockMainHeading, "Author."}}};
    card.blocks.push_back({kBlockBody, words});
    card.blocks.push_back({kBlockTracings, "I. Title."});
    card.blocks.push_back({kBlockContinued, "Author. Title."});
    const std::string shown = Shown(card);
    std::size_t at = 0;
    for (int i = 0; i < 300; ++i) {
        at = shown.find("w" + std::to_string(i), at);
        ASSERT_NE(at, shown.npos) << i << "\n" << shown;
    }
    EXPECT_NE(shown.find("(Continued on next card)"), shown.npos);
    EXPECT_NE(shown.find("PS1        Author. Title. (Card 2)"), shown.npos) << shown;
    EXPECT_GT(shown.find("I. Title."), at);
}

// Whatever a card holds, all of it is placed once, in order, and inside of a card.
TEST_F(Layout, NothingIsLostOrOutside) {
    std::mt19937 random(5);
    ColumnTypesetter typesetter;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        PrintItem card;
        std::string all;
        const std::vector<BlockRole> roles{kBlockAddedHeading, kBlockMainHeading, kBlockTitleEntry,
                                           kBlockBody, kBlockTracings};
        for (const BlockRole role : roles) {
            for (std::size_t count = random() % 3; count > 0; --count) {
                std::string text;
                for (std::size_t left = random() % 60; left > 0; --left) {
                    text += std::string(1 + random() % (random() % 20 == 0 ? 90 : 9), 'a') + ' ';
                }
                card.blocks.push_back({role, text});
                all += text;
            }
        }
        std::erase(all, ' ');
        std::string placed;
        for (const Panel& panel : LayOutCard(card, CardOptionsOfProfile(), typesetter)) {
            for (const PlacedLine& line : panel.lines) {
                EXPECT_GE(line.x, 0);
                EXPECT_LE(line.y + 12, kCardHeight);
                if (!line.text.starts_with('(')) placed += line.text;
            }
        }
        std::erase(placed, ' ');
        EXPECT_EQ(placed.size(), all.size());
    }
}

TEST_F(Layout, TextFromTheRightBeginsAtTheRight) {
    const PrintItem card{kUseMainEntry, "1", {{kBlockMainHeading, "שלום"}, {kBlockBody, "abc"}}};
    ColumnTypesetter typesetter;
    const auto panels = LayOutCard(card, CardOptionsOfProfile(), typesetter);
    const PlacedLine& line = panels.front().lines.front();
    EXPECT_TRUE(line.isRightToLeft);
    EXPECT_NEAR(line.x + 4 * 6, kCardWidth - 5 * kPointsPerMillimetre, 0.01);
    EXPECT_FALSE(panels.front().lines.back().isRightToLeft);
}

TEST_F(Layout, SheetsHaveTheirPlaces) {
    CardOptions options = CardOptionsOfProfile();
    options.horizontalOffset = 0.5;
    options.verticalOffset = -0.25;
    struct Case {
        int count;
        double width, height, x, y;  // of the sheet, and of the last place without offsets
    };
    for (const Case& row : {Case{1, kCardWidth, kCardHeight, 0, 0},
                            Case{3, 612, 792, (612 - kCardWidth) / 2, 396 + kCardHeight / 2},
                            Case{4, 792, 612, 396, 306}}) {
        SCOPED_TRACE(row.count);
        options.cardsPerSheet = row.count;
        const Sheet sheet = CardSheet(options, kPaperLetter);
        ASSERT_EQ(sheet.places.size(), static_cast<std::size_t>(row.count));
        EXPECT_NEAR(sheet.width, row.width, 0.01);
        EXPECT_NEAR(sheet.height, row.height, 0.01);
        EXPECT_NEAR(sheet.places.back().x, row.x + 36, 0.01);
        EXPECT_NEAR(sheet.places.back().y, row.y - 18, 0.01);
    }
}

TEST(LabelStocks, LabelsLieOnTheirSheetsAndApart) {
    for (const LabelStock& stock : LabelStocks()) {
        SCOPED_TRACE(stock.name);
        const double width = stock.spineWidth + stock.pocketWidth;
        EXPECT_LE(width, stock.pitchX + 1e-9);
        EXPECT_LE(stock.height, stock.pitchY + 1e-9);
        EXPECT_LE(stock.left + (stock.columns - 1) * stock.pitchX + width, stock.paperWidth + 1e-9);
        EXPECT_LE(stock.top + (stock.rows - 1) * stock.pitchY + stock.height,
                  stock.paperHeight + 1e-9);
    }
}

// Labels of a record with these copies, one a line, and what is on them.
class Labels : public CardFixture {
protected:
    static Lines LabelsOf(const LabelOptions& options, const Lines& fields) {
        const HoldingsSystem alexandria = System("Alexandria");
        const TestRecord test(fields, '$');
        CallNumbers callNumbers({});
        Lines lines;
        for (const PrintItem& label :
             LabelMaker(options, callNumbers, kCharsetUtf8).LabelsOf(test.record)) {
            std::string text;
            for (const Block& block : label.blocks) text += block.text + "|";
            lines.push_back(text);
        }
        return lines;
    }

    const Lines fields_{kLeaderLine, "1001 $aMeyer, A.", "24500$aMaps :$brivers",
                        "852  $hMAP 1 c. 2", "852  $hMAP 1"};
};

TEST_F(Labels, AreOneForEachCopyOrSoManyOfEachCallNumber) {
    LabelOptions options = LabelOptionsOfProfile();
    EXPECT_EQ(LabelsOf(options, fields_),
              (Lines{"MAP|1|c. 2|Meyer, A.|Maps|", "MAP|1|Meyer, A.|Maps|"}));
    options.sets = 2;
    options.additionalSubfields = ParsePlaceSet("100a").places;
    Lines twice = fields_;
    twice.emplace_back("852  $hMAP 1");
    const Lines labels = LabelsOf(options, twice);
    ASSERT_EQ(labels.size(), 4U);
    EXPECT_EQ(labels[0], "MAP|1|c. 2|Meyer, A.|Meyer, A.|Maps|");
    EXPECT_EQ(labels[2], labels[3]);
    EXPECT_TRUE(LabelsOf(options, {kLeaderLine, "24500$aNo number"}).empty());
}

TEST_F(Labels, AreLaidOutForTheirStock) {
    LabelOptions options = LabelOptionsOfProfile();
    ColumnTypesetter typesetter;
    PrintItem label{kUseLabel, "1", {{kBlockCallNumber, "MAP"}, {kBlockCallNumber, "1912"}}};
    label.blocks.push_back({kBlockPocket, "Meyer, A."});
    Panel panel = LayOutLabel(label, options, typesetter);
    EXPECT_EQ(panel.lines.size(), 2U);
    EXPECT_FALSE(panel.lacksRoom);
    EXPECT_TRUE(ToText(panel).starts_with("┌────────────┐\n│ MAP        │\n│ 1912       │\n"))
        << ToText(panel);

    options.isTurned = true;
    panel = LayOutLabel(label, options, typesetter);
    ASSERT_EQ(panel.lines.size(), 1U);
    EXPECT_EQ(panel.lines[0].text, "MAP 1912");
    EXPECT_TRUE(panel.isTurned);

    options.stock = FindLabelStock("SP1");
    panel = LayOutLabel(label, options, typesetter);
    ASSERT_EQ(panel.lines.size(), 4U);
    EXPECT_EQ(panel.lines[2].text, "MAP 1912");
    EXPECT_GT(panel.lines[2].x, 72);
    EXPECT_FALSE(panel.isTurned);

    label.blocks.insert(label.blocks.begin(), 20, {kBlockCallNumber, "X"});
    EXPECT_TRUE(LayOutLabel(label, options, typesetter).lacksRoom);
}

}  // namespace
}  // namespace quillory
