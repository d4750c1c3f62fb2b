#include <quillory/jobs/LookedItems.h>

#include <algorithm>
#include <iterator>

namespace quillory {

LookedItem LookedItem::Of(const Item& item) {
    const bool isRecord = item.kind == kItemRecord;
    const TypeAndLevel typeAndLevel = isRecord ? TypeAndLevelOf(item.record) : TypeAndLevel();
    return {&item, item.number, isRecord && !item.fault, typeAndLevel};
}

void LookedItems::Add(const Item& item, RecordLook& look) {
    std::ranges::move(look.remarks, std::back_inserter(remarks_));
    numbers_.insert(numbers_.end(), look.numbers.begin(), look.numbers.end());
    rows_.push_back(
        {LookedItem::Of(item), remarks_.size(), numbers_.size(), look.heaviest, look.isUnimarc});
}

}  // namespace quillory
