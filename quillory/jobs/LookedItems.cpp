#include <quillory/jobs/LookedItems.h>

#include <algorithm>
#include <iterator>

namespace quillory {

LookedItem LookedItem::Of(const Item& item) {
    LookedItem looked{.item = &item,
                      .number = item.number,
                      .offset = item.offset,
                      .controlNumber = {},
                      .isSound = item.kind == kItemRecord && !item.fault,
                      .typeAndLevel = {}};
    if (item.kind == kItemRecord) {
        looked.controlNumber = item.record.ControlNumber();
        looked.typeAndLevel = TypeAndLevelOf(item.record);
    }
    return looked;
}

void LookedItems::Add(const LookedItem& looked, RecordLook& look) {
    std::ranges::move(look.remarks, std::back_inserter(remarks_));
    numbers_.insert(numbers_.end(), look.numbers.begin(), look.numbers.end());
    rows_.push_back({looked, remarks_.size(), numbers_.size(), look.heaviest, look.isUnimarc});
}

}  // namespace quillory
