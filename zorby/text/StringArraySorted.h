#pragma once

#include <zorby/Export.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A list of texts that sorts itself when it is searched. The order ignores the case of ASCII
// letters. Texts that differ only in case keep their order.
class ZORBY_EXPORT CStringArraySorted : public std::vector<std::string> {
public:
    CStringArraySorted();
    CStringArraySorted(const CStringArraySorted&);
    CStringArraySorted& operator=(const CStringArraySorted&);
    virtual ~CStringArraySorted();

    void Add(std::string_view text);
    // Returns the index of the first equal text in sorted order plus 1, or 0. If texts were added
    // since the last Find, the list is sorted first, and earlier indices are no longer valid.
    int Find(std::string_view text, int ignoreCase);
    void Sort();

private:
    bool isSorted_ = false;
};

}  // namespace zorby
