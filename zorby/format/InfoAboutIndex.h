#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

namespace zorby {

// Where the records of each MARC tag stand in a list.
class ZORBY_EXPORT InfoAboutIndex {
public:
    // Tells the tag of the next record of the list.
    void Add(unsigned tag);
    // Positions counted from 0, ascending; valid until the next Add.
    std::span<const std::size_t> Of(unsigned tag) const;

private:
    std::unordered_map<unsigned, std::vector<std::size_t>> positions_;
    std::size_t size_ = 0;
};

}  // namespace zorby
