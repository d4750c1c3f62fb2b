#include <quillory/rules/SeenNumbers.h>
#include <quillory/text/Fnv1a.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillory {

// Stirred, since places are taken from the high bits.
std::uint64_t SeenNumbers::HashOf(char kind, std::string_view number) {
    constexpr std::uint64_t kStir = 0x9E3779B97F4A7C15;
    Fnv1a bytes;
    bytes.Add(kind);
    bytes.Add(number);
    const std::uint64_t hash = (bytes.Value() ^ bytes.Value() >> 32) * kStir;
    return hash ^ hash >> 32;
}

void SeenNumbers::BeginFile(const std::string& name) {
    files_.push_back({name, last_});
}

std::optional<SeenNumbers::RecordMet> SeenNumbers::Meet(std::uint64_t hash, std::uint64_t record) {
    constexpr std::size_t kFull = 85;  // percent
    if (used_ * 100 >= hashes_.size() * kFull) Grow();
    if (files_.empty()) BeginFile({});
    const std::uint32_t here = files_.back().before + static_cast<std::uint32_t>(record);
    last_ = std::max(last_, here);
    const std::size_t place = PlaceOf(hash);
    if (records_[place] == 0) {
        hashes_[place] = hash;
        records_[place] = here;
        ++used_;
        return std::nullopt;
    }
    if (records_[place] == here) return std::nullopt;
    return RecordMet{records_[place]};
}

std::size_t SeenNumbers::PlaceOf(std::uint64_t hash) const {
    constexpr int kHalf = 32;  // of the bits of a hash; there are fewer places than it has values
    std::size_t place = (hash >> kHalf) * hashes_.size() >> kHalf;
    while (records_[place] != 0 && hashes_[place] != hash) {
        if (++place == hashes_.size()) place = 0;
    }
    return place;
}

void SeenNumbers::Grow() {
    constexpr std::size_t kFirstSize = 1024;
    const std::size_t size = std::max(kFirstSize, hashes_.size() + hashes_.size() / 4);
    const auto hashes = std::exchange(hashes_, std::vector<std::uint64_t>(size));
    const auto records = std::exchange(records_, std::vector<std::uint32_t>(size));
    for (std::size_t i = 0; i < hashes.size(); ++i) {
        if (records[i] == 0) continue;
        const std::size_t place = PlaceOf(hashes[i]);
        hashes_[place] = hashes[i];
        records_[place] = records[i];
    }
}

std::string SeenNumbers::TextOf(RecordMet met) const {
    const auto record = static_cast<std::uint32_t>(met);
    const auto file = std::prev(std::ranges::find_if(
        files_, [record](const File& other) { return other.before >= record; }));
    std::string text = std::to_string(record - file->before);
    if (file != std::prev(files_.end())) text += " of " + file->name;
    return text;
}

}  // namespace quillory
