#include <quillory/sets/Duplicates.h>
#include <quillory/sets/Packing.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace quillory {

void Duplicates::Add(const std::vector<std::string>& keys, std::uint64_t fullness) {
    std::string record;
    AppendNumber(count_, record);
    for (const std::string& key : keys) sort_.Add(key, record);
    if (keep_ == Keep::Fullest) fullness_.push_back(fullness);
    ++count_;
}

void Duplicates::AddLinks(std::string_view key, const std::vector<Index>& records) {
    if (records.size() < 2) return;
    for (const Index record : records) links_.push_back({record, keys_.Count()});
    keys_.Add(key);
}

void Duplicates::Collect() {
    std::string last;
    std::vector<Index> records;
    sort_.ForEach([&](std::string_view key, std::string_view packed) {
        if (key != last) {
            AddLinks(last, records);
            records.clear();
            last = key;
        }
        records.push_back(static_cast<Index>(TakeNumber(packed)));
    });
    AddLinks(last, records);
    std::ranges::sort(links_, {},
                      [](const Link& link) { return std::pair(link.record, link.key); });
}

std::vector<Duplicates::Index> Duplicates::InOrderOfPreference() const {
    std::vector<Index> records;
    for (const Link& link : links_) {
        if (records.empty() || records.back() != link.record) records.push_back(link.record);
    }
    if (keep_ == Keep::Last) std::ranges::reverse(records);
    if (keep_ == Keep::Fullest) {
        std::ranges::stable_sort(records,
                                 [this](Index a, Index b) { return fullness_[a] > fullness_[b]; });
    }
    return records;
}

std::span<const Duplicates::Link> Duplicates::LinksOf(Index record) const {
    const auto first = std::ranges::lower_bound(links_, record, {}, &Link::record);
    const auto last = std::ranges::upper_bound(links_, record, {}, &Link::record);
    return {first, last};
}

std::vector<Duplicates::Match> Duplicates::Find() {
    constexpr Index kNobody = std::numeric_limits<Index>::max();
    Collect();
    std::vector<Index> keepers(keys_.Count(), kNobody);  // by key
    std::vector<Match> matches;
    for (const Index record : InOrderOfPreference()) {
        const std::span<const Link> own = LinksOf(record);
        const auto match = std::find_if(own.begin(), own.end(), [&keepers](const Link& link) {
            return keepers[link.key] != kNobody;
        });
        if (match != own.end()) {
            matches.push_back({record, keepers[match->key], match->key});
        } else {
            for (const Link& link : own) keepers[link.key] = record;
        }
    }
    std::ranges::sort(matches, {}, &Match::record);
    return matches;
}

std::string Duplicates::KeyOf(const Match& match) {
    std::string key;
    keys_.Read(match.key, key);
    return key;
}

}  // namespace quillory
