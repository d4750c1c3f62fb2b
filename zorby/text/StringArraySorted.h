#pragma once

#include <zorby/Export.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A list of texts that sorts itself when it is searched. Order pays no heed to the case of ASCII
// letters; texts that differ in case alone keep their order.
class ZORBY_EXPORT CStringArraySorted : public std::vector<std::string> {
public:
    CStringArraySorted();
    CStringArraySorted(const CStringArraySorted&);
    CStringArraySorted& operator=(const CStringArraySorted&);
    virtual ~CStringArraySorted();

    void Add(std::string_view text);
    // The index of the first equal text in sorted order plus 1, or 0. The list is sorted first if
    // texts were added since the last Find, so indices from before are stale.
    int Find(std::string_view text, int ignoreCase);
    void Sort();

private:
    bool isSorted_ = false;
};

}  // namespace zorby
