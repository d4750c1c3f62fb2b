#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zorby {

// A name and the number that goes with it, such as a workform's name and ID.
struct CStringAndUINT {
    std::string text;
    std::uint32_t value = 0;
};

// Both sorts are stable, and only sort what is there now: what is added later goes to the end.
class ZORBY_EXPORT CStringAndUINTArraySorted : public std::vector<CStringAndUINT> {
public:
    CStringAndUINTArraySorted();
    CStringAndUINTArraySorted(const CStringAndUINTArraySorted&);
    CStringAndUINTArraySorted& operator=(const CStringAndUINTArraySorted&);
    virtual ~CStringAndUINTArraySorted();

    // The case of ASCII letters doesn't count.
    void SortByCString();
    void SortByUINT();
};

}  // namespace zorby
