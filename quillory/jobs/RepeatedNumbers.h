#pragma once

#include <quillory/sets/ExternalSort.h>

#include <cstdint>
#include <functional>
#include <string_view>

namespace quillory {

// Finds the numbers that more than one record has. What memory does not hold is sorted in temporary
// files. Throws FileError.
class RepeatedNumbers {
public:
    struct Where {
        std::uint64_t index;   // among all records
        std::uint64_t file;    // the record's, and
        std::uint64_t number;  // its number there
    };
    // A record with a number that another one had before it.
    struct Match {
        std::uint64_t index;
        std::uint64_t which;  // of the record's numbers
        Where first;          // that has it
    };

    // `memory` in bytes.
    explicit RepeatedNumbers(std::size_t memory) : numbers_(memory / 2), matches_(memory / 2) {}

    // Records come in their order. `which` tells the numbers of one record from each other.
    void Add(std::string_view number, const Where& where, std::uint64_t which);
    // To be called once, when all have come. Matches come in the order of the records.
    void ForEach(const std::function<void(const Match& match)>& take);

private:
    void Collect();

    ExternalSort numbers_;
    ExternalSort matches_;
};

}  // namespace quillory
