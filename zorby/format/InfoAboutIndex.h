#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

namespace zorby {

// Knows where the records of each MARC tag are in a list.
class ZORBY_EXPORT InfoAboutIndex {
public:
    // Adds the next record of the list, by its tag.
    void Add(unsigned tag);
    // Returns the positions, counted from 0, in ascending order. They are valid until the next Add.
    std::span<const std::size_t> Of(unsigned tag) const;

private:
    std::unordered_map<unsigned, std::vector<std::size_t>> positions_;
    std::size_t size_ = 0;
};

}  // namespace zorby
