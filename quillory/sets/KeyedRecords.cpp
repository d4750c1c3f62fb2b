#include <quillory/sets/KeyedRecords.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace quillory {

std::uint64_t KeyedRecords::HashOf(std::string_view key) {
    return std::hash<std::string_view>()(key);
}

void KeyedRecords::Add(std::string_view packed, const std::vector<std::string>& keys) {
    for (const std::string& key : keys) entries_.push_back({HashOf(key), records_.Count(), 0});
    records_.Add(packed);
}

void KeyedRecords::Sort() {
    std::ranges::sort(entries_, {},
                      [](const Entry& entry) { return std::pair(entry.hash, entry.record); });
    taken_.resize(records_.Count());
}

// The taken ones at the front are passed over once and for all.
std::size_t KeyedRecords::FirstOf(std::string_view key) {
    const std::uint64_t hash = HashOf(key);
    const auto first = std::ranges::lower_bound(entries_, hash, {}, &Entry::hash);
    if (first == entries_.end() || first->hash != hash) return entries_.size();
    const auto begin = static_cast<std::size_t>(first - entries_.begin());
    std::size_t at = begin + first->next;
    while (at < entries_.size() && entries_[at].hash == hash && taken_[entries_[at].record]) ++at;
    first->next = static_cast<Index>(at - begin);
    return at;
}

}  // namespace quillory
