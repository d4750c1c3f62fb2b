#pragma once

#include <quillory/sets/PackedRecords.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Records in a temporary file that are looked for by their keys. Memory holds 8 bytes for each
// record and 16 for each key. Throws FileError.
class KeyedRecords {
public:
    using Index = PackedRecords::Index;

    void Add(std::string_view packed, const std::vector<std::string>& keys);
    // After the last record, before Find.
    void Sort();

    Index Count() const { return records_.Count(); }
    void Read(Index record, std::string& packed) { records_.Read(record, packed); }
    bool IsTaken(Index record) const { return taken_[record]; }
    void Take(Index record) { taken_[record] = true; }

    // Calls `take(record)` for each record that may have this key, in their order, those that are
    // taken left out, until it returns true. A few may have another key.
    template <class Take>
    void Find(std::string_view key, Take&& take) {
        for (std::size_t at = FirstOf(key); at < entries_.size(); ++at) {
            if (entries_[at].hash != HashOf(key)) return;
            if (!taken_[entries_[at].record] && take(entries_[at].record)) return;
        }
    }

    // Calls `take(first, other)` for each record that may share a key with one before it, and the
    // first one of them.
    template <class Take>
    void ForEachDouble(Take&& take) const {
        for (std::size_t first = 0, at = 1; at < entries_.size(); ++at) {
            if (entries_[at].hash != entries_[first].hash) {
                first = at;
            } else {
                take(entries_[first].record, entries_[at].record);
            }
        }
    }

private:
    struct Entry {
        std::uint64_t hash;
        Index record;
        Index next;  // in the first entry of a hash: how many of those after it are taken
    };

    static std::uint64_t HashOf(std::string_view key);
    std::size_t FirstOf(std::string_view key);

    PackedRecords records_;
    std::vector<Entry> entries_;
    std::vector<bool> taken_;
};

}  // namespace quillory
