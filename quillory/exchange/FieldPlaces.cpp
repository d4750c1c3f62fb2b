#include <quillory/exchange/FieldPlaces.h>

namespace quillory {

Place FieldPlaces::After(std::span<const zorby::CommFormatField> fields, std::string_view tag) {
    for (; counted_ < fields.size(); ++counted_) ++counts_[std::string(fields[counted_].tag)];
    const auto count = counts_.find(tag);
    return Place::OfField(tag, count == counts_.end() ? 1 : count->second + 1);
}

void FieldPlaces::Clear() {
    counts_.clear();
    counted_ = 0;
}

}  // namespace quillory
