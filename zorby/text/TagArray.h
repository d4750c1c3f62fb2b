#pragma once

#include <zorby/Export.h>

#include <vector>

namespace zorby {

// MARC tags by number, in the order in which they were added.
class ZORBY_EXPORT CTagArray : public std::vector<unsigned> {
public:
    CTagArray();
    CTagArray(const CTagArray&);
    CTagArray& operator=(const CTagArray&);
    virtual ~CTagArray();

    // Returns 1 if the tag is there, else 0.
    int Find(unsigned tag) const;
    // Leaves the same tags, in an order that callers must not rely on.
    void Sort();
    // Leaves the tags that were there, each at least once, with no two equal tags side by side.
    void RemoveDuplicates();
};

}  // namespace zorby
