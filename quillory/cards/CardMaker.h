#pragma once

#include <quillory/cards/CallNumbers.h>
#include <quillory/cards/CardOptions.h>
#include <quillory/cards/PrintItem.h>

#include <vector>

namespace quillory {

// Makes the set of cards of each record: shelf list, main entry, and the added entries under
// titles, names, series and subjects, as the options say.
class CardMaker {
public:
    // `uses` are those cards of a set that are made; none for all that the options have. The
    // options and the call numbers outlive this.
    CardMaker(const CardOptions& options, const std::vector<ItemUse>& uses,
              CallNumbers& callNumbers, Charset charset);

    // The cards of a record, which has to have its title at least: none of one without 245.
    std::vector<PrintItem> CardsOf(const Record& record);

private:
    bool IsMade(ItemUse use) const;
    PrintItem Card(ItemUse use, const CardRecord& texts, const std::vector<ShelvedCopy>& copies);

    const CardOptions& options_;
    std::vector<ItemUse> uses_;
    CallNumbers& callNumbers_;
    ValueReader reader_;
};

}  // namespace quillory
