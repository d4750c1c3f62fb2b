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

// Both sorts are stable. They sort only what is there: elements that are added later go to the end.
class ZORBY_EXPORT CStringAndUINTArraySorted : public std::vector<CStringAndUINT> {
public:
    CStringAndUINTArraySorted();
    CStringAndUINTArraySorted(const CStringAndUINTArraySorted&);
    CStringAndUINTArraySorted& operator=(const CStringAndUINTArraySorted&);
    virtual ~CStringAndUINTArraySorted();

    // Ignores the case of ASCII letters.
    void SortByCString();
    void SortByUINT();
};

}  // namespace zorby
