#pragma once

#include <quillory/exchange/SpillFile.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Records in a temporary file, in the order in which they came, each to be had again at any time.
// Takes 8 bytes of memory for each. Throws FileError, also for more than 4 thousand million.
class PackedRecords {
public:
    using Index = std::uint32_t;

    void Add(std::string_view packed);
    Index Count() const { return static_cast<Index>(ends_.size()); }
    // Replaces `packed`.
    void Read(Index record, std::string& packed);

private:
    SpillFile file_;
    std::vector<std::uint64_t> ends_;
};

}  // namespace quillory
