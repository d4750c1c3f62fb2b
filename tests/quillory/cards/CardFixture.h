#pragma once

#include <quillory/cards/CardLayout.h>
#include <quillory/cards/CardMaker.h>
#include <quillory/reports/PanelText.h>

#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/holdings/HoldingsFixture.h>
#include <vector>

namespace quillory {

// Cards of records in line form, with "$" for the delimiter, under settings in memory.
class CardFixture : public HoldingsFixture {
protected:
    static std::vector<PrintItem> CardsUnder(const CardOptions& options, const Lines& lines,
                                             const std::vector<ItemUse>& uses) {
        const TestRecord test(lines, '$');
        CallNumbers callNumbers({});
        return CardMaker(options, uses, callNumbers, kCharsetUtf8).CardsOf(test.record);
    }
    static std::vector<PrintItem> CardsOf(const Lines& lines,
                                          const std::vector<ItemUse>& uses = {}) {
        return CardsUnder(CardOptionsOfProfile(), lines, uses);
    }

    // The headings above the main heading, card after card.
    static Lines AddedHeadings(const std::vector<PrintItem>& cards) {
        Lines lines;
        for (const PrintItem& card : cards) {
            for (std::string& text : card.Texts(kBlockAddedHeading)) lines.push_back(text);
        }
        return lines;
    }

    // As it looks on a terminal.
    static std::string Shown(const PrintItem& card) {
        ColumnTypesetter typesetter;
        std::string text;
        for (const Panel& panel : LayOutCard(card, CardOptionsOfProfile(), typesetter)) {
            text += ToText(panel);
        }
        return text;
    }
};

}  // namespace quillory
