#include <zorby/text/StringAndUINTArraySorted.h>
#include <zorby/text/detail/CaseFolded.h>

#include <algorithm>

namespace zorby {

CStringAndUINTArraySorted::CStringAndUINTArraySorted() = default;
CStringAndUINTArraySorted::CStringAndUINTArraySorted(const CStringAndUINTArraySorted&) = default;
CStringAndUINTArraySorted& CStringAndUINTArraySorted::operator=(const CStringAndUINTArraySorted&) =
    default;
CStringAndUINTArraySorted::~CStringAndUINTArraySorted() = default;

void CStringAndUINTArraySorted::SortByCString() {
    std::stable_sort(begin(), end(), [](const CStringAndUINT& left, const CStringAndUINT& right) {
        return LessCaseFolded(left.text, right.text);
    });
}

void CStringAndUINTArraySorted::SortByUINT() {
    std::stable_sort(begin(), end(), [](const CStringAndUINT& left, const CStringAndUINT& right) {
        return left.value < right.value;
    });
}

}  // namespace zorby
