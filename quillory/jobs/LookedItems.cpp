#include <quillory/jobs/LookedItems.h>

#include <algorithm>
#include <iterator>

namespace quillory {

void LookedItems::Add(const Item& item, RecordLook& look) {
    std::ranges::move(look.remarks, std::back_inserter(remarks_));
    numbers_.insert(numbers_.end(), look.numbers.begin(), look.numbers.end());
    rows_.push_back({&item, remarks_.size(), numbers_.size(), look.heaviest, look.isUnimarc});
}

}  // namespace quillory
