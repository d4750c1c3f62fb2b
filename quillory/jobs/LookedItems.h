#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/jobs/CheckReport.h>
#include <quillory/rules/Inspector.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// An item that was looked at. What is needed of each record stands here too: it takes long to fetch
// it from where another thread has left the item.
struct LookedItem {
    const Item* item;  // null for a record without fault that is not kept
    std::uint64_t number;
    std::uint64_t offset;
    std::string_view controlNumber;
    bool isSound;  // a record without fault
    TypeAndLevel typeAndLevel;

    static LookedItem Of(const Item& item);
};

// What was found of items that follow one another, until it can be told in their order.
class LookedItems {
public:
    // Takes the remarks.
    void Add(const LookedItem& looked, RecordLook& look);

    // Calls `take(lookedItem, look)` for each item. It can be called once.
    template <class Take>
    void ForEach(Take take) {
        RecordLook look;
        std::size_t remark = 0;
        std::size_t number = 0;
        for (const Row& row : rows_) {
            look.remarks.clear();
            for (; remark < row.remarksEnd; ++remark) {
                look.remarks.push_back(std::move(remarks_[remark]));
            }
            look.numbers.assign(numbers_.data() + number, numbers_.data() + row.numbersEnd);
            number = row.numbersEnd;
            look.heaviest = row.heaviest;
            look.isUnimarc = row.isUnimarc;
            take(row.looked, look);
        }
    }

private:
    struct Row {
        LookedItem looked;
        std::size_t remarksEnd;
        std::size_t numbersEnd;
        std::optional<Severity> heaviest;
        bool isUnimarc;
    };

    std::vector<Row> rows_;
    // Of all items, one after the other.
    std::vector<Remark> remarks_;
    std::vector<NumberMet> numbers_;
};

}  // namespace quillory
