#include <zorby/text/TagArray.h>

#include <algorithm>

namespace zorby {

CTagArray::CTagArray() = default;
CTagArray::CTagArray(const CTagArray&) = default;
CTagArray& CTagArray::operator=(const CTagArray&) = default;
CTagArray::~CTagArray() = default;

int CTagArray::Find(unsigned tag) const {
    return std::find(begin(), end(), tag) != end() ? 1 : 0;
}

void CTagArray::Sort() {
    std::sort(begin(), end());
}

void CTagArray::RemoveDuplicates() {
    Sort();
    erase(std::unique(begin(), end()), end());
}

}  // namespace zorby
