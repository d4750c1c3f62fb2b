#include <zorby/format/detail/AlexandriaFields.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <algorithm>
#include <iterator>

namespace zorby {
namespace {

struct AlexandriaField {
    unsigned tag;
    const char* name;
};

constexpr AlexandriaField kFields[] = {
    {900, "Alexandria default call number"},
    {92, "Alexandria title volume number"},
};

bool AreInForce() {
    return CHoldingsSelector::GetCurrentHoldingsTypeID() == HT_ALEXANDRIA;
}

}  // namespace

void AppendAlexandriaTags(CTagArray& tags) {
    if (!AreInForce()) return;
    for (const AlexandriaField& field : kFields) tags.push_back(field.tag);
}

const char* AlexandriaName(unsigned tag) {
    const auto* field = std::ranges::find(kFields, tag, &AlexandriaField::tag);
    return field != std::end(kFields) && AreInForce() ? field->name : nullptr;
}

}  // namespace zorby
