#include <zorby/format/InfoAboutIndex.h>

namespace zorby {

void InfoAboutIndex::Add(unsigned tag) {
    positions_[tag].push_back(size_++);
}

std::span<const std::size_t> InfoAboutIndex::Of(unsigned tag) const {
    const auto found = positions_.find(tag);
    return found == positions_.end() ? std::span<const std::size_t>() : found->second;
}

}  // namespace zorby
