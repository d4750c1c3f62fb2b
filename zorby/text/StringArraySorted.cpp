#include <zorby/text/StringArraySorted.h>
#include <zorby/text/detail/CaseFolded.h>

#include <algorithm>

namespace zorby {

CStringArraySorted::CStringArraySorted() = default;
CStringArraySorted::CStringArraySorted(const CStringArraySorted&) = default;
CStringArraySorted& CStringArraySorted::operator=(const CStringArraySorted&) = default;
CStringArraySorted::~CStringArraySorted() = default;

void CStringArraySorted::Add(std::string_view text) {
    emplace_back(text);
    isSorted_ = false;
}

int CStringArraySorted::Find(std::string_view text, int ignoreCase) {
    if (!isSorted_) Sort();
    isSorted_ = true;
    const auto found = std::find_if(begin(), end(), [&](const std::string& element) {
        return ignoreCase != 0 ? EqualCaseFolded(element, text) : element == text;
    });
    return found == end() ? 0 : static_cast<int>(found - begin()) + 1;
}

void CStringArraySorted::Sort() {
    std::stable_sort(begin(), end(), LessCaseFolded);
}

}  // namespace zorby
