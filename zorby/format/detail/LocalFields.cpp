#include <zorby/format/detail/LocalFields.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <algorithm>

namespace zorby {
namespace {

const HoldingsTypeRow& RowInForce() {
    return HoldingsRowOf(CHoldingsSelector::GetCurrentHoldingsTypeID());
}

}  // namespace

void AppendLocalTags(CTagArray& tags) {
    for (const HoldingsLocalField& field : RowInForce().localFields) tags.push_back(field.tag);
}

// The settings are read only for a tag that is local to some system.
const HoldingsLocalField* FindLocalField(unsigned tag) {
    for (const HoldingsTypeRow& row : HoldingsTypeTable()) {
        const auto field = std::ranges::find(row.localFields, tag, &HoldingsLocalField::tag);
        if (field != row.localFields.end() && &RowInForce() == &row) return &*field;
    }
    return nullptr;
}

}  // namespace zorby
