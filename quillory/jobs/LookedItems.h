#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/rules/Inspector.h>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quillory {

// What was found of items that follow one another, until it can be told in their order.
class LookedItems {
public:
    // Keeps a pointer to the item; takes the remarks.
    void Add(const Item& item, RecordLook& look);

    // Calls `take(item, look)` for each item. It can be called once.
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
            take(*row.item, look);
        }
    }

private:
    struct Row {
        const Item* item;
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
