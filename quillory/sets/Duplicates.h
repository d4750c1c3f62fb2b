#pragma once

#include <quillory/sets/ExternalSort.h>
#include <quillory/sets/PackedRecords.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillory {

// Which of several records that are the same is kept.
enum class Keep : std::uint8_t { First, Last, Fullest };

// Finds out which records go, by their keys alone. Records are looked at in the order in which they
// are preferred; one goes if it shares a key with a record that is kept. So each that goes has its
// counterpart, and those that are kept share no key. Memory is that of the sort, and a few bytes
// for each record that shares a key with another one.
class Duplicates {
public:
    using Index = PackedRecords::Index;

    struct Match {
        Index record;  // that goes
        Index kept;    // the one that it goes with
        Index key;     // that both have
    };

    Duplicates(Keep keep, std::size_t memory) : keep_(keep), sort_(memory) {}

    // The records come in their order. `fullness` is looked at for Keep::Fullest alone.
    void Add(const std::vector<std::string>& keys, std::uint64_t fullness);
    // Those that go, in their order. To be called once, after the last record.
    std::vector<Match> Find();
    // The text of a match's key.
    std::string KeyOf(const Match& match);

private:
    // A record and one of its keys, which another one has, too.
    struct Link {
        Index record;
        Index key;
    };

    void Collect();
    void AddLinks(std::string_view key, const std::vector<Index>& records);
    std::vector<Index> InOrderOfPreference() const;
    std::span<const Link> LinksOf(Index record) const;

    Keep keep_;
    ExternalSort sort_;
    Index count_ = 0;
    std::vector<std::uint64_t> fullness_;
    std::vector<Link> links_;
    PackedRecords keys_;
};

}  // namespace quillory
