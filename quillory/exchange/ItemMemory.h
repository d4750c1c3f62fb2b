#pragma once

#include <quillory/exchange/Record.h>

#include <deque>
#include <string>

namespace quillory {

// Holds the bytes of items that are to outlast their reader.
class ItemMemory {
public:
    // Makes `copy` the same item, with views of bytes that stay here until Clear.
    void Copy(const Item& item, Item& copy);
    void Clear() { texts_.clear(); }

private:
    std::deque<std::string> texts_;  // of each item, which never moves
};

// An item that outlasts its reader.
class KeptItem {
public:
    explicit KeptItem(const Item& item) { memory_.Copy(item, item_); }
    KeptItem(const KeptItem&) = delete;
    KeptItem& operator=(const KeptItem&) = delete;

    const Item& Get() const { return item_; }

private:
    ItemMemory memory_;
    Item item_;
};

}  // namespace quillory
