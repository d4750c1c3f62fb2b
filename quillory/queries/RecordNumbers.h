#pragma once

#include <quillory/queries/TextFault.h>

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// Numbers of records in a file, from 1: "17,20-25".
class RecordNumbers {
public:
    bool Empty() const { return ranges_.empty(); }
    bool Has(std::uint64_t number) const;
    // The highest of them; 0 if there is none.
    std::uint64_t Last() const { return Empty() ? 0 : ranges_.back().second; }
    // 0 if there is none.
    std::uint64_t BeginOfLastRange() const { return Empty() ? 0 : ranges_.back().first; }

private:
    friend struct RecordNumbersReading ParseRecordNumbers(std::string_view text);

    std::vector<std::pair<std::uint64_t, std::uint64_t>> ranges_;  // sorted, apart from each other
};

struct RecordNumbersReading {
    RecordNumbers numbers;
    TextFault fault;
};

// Numbers and ranges divided by commas, in any order.
RecordNumbersReading ParseRecordNumbers(std::string_view text);

}  // namespace quillory
