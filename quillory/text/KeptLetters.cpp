#include <quillory/text/KeptLetters.h>
#include <quillory/text/Letters.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace quillory {
namespace {

// Characters with the marks that follow them.
std::vector<std::string_view> LettersOf(std::string_view text) {
    std::vector<std::string_view> letters;
    letters.reserve(text.size());
    while (!text.empty()) {
        letters.push_back(text.substr(0, LetterSize(text)));
        text.remove_prefix(letters.back().size());
    }
    return letters;
}

bool AreSame(std::string_view a, std::string_view b) {
    return a == b || Normalized(a, kNormalFormC) == Normalized(b, kNormalFormC);
}

NormalForm FormOf(std::string_view text) {
    const bool isApart = Normalized(text, kNormalFormD) == text;
    return isApart && Normalized(text, kNormalFormC) != text ? kNormalFormD : kNormalFormC;
}

template <class Iterator>
std::size_t SizeOf(Iterator first, Iterator last) {
    std::size_t size = 0;
    for (; first != last; ++first) size += first->size();
    return size;
}

}  // namespace

std::string WithLettersKept(std::string_view given, std::string_view edited) {
    const std::vector<std::string_view> before = LettersOf(given);
    const std::vector<std::string_view> after = LettersOf(edited);
    const auto front =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), AreSame);
    const std::size_t head = SizeOf(before.begin(), front.first);
    const auto back =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(front.first), after.rbegin(),
                      std::make_reverse_iterator(front.second), AreSame);
    const std::size_t tail = SizeOf(before.rbegin(), back.first);
    const std::size_t from = SizeOf(after.begin(), front.second);
    const std::size_t to = edited.size() - SizeOf(after.rbegin(), back.second);
    std::string text(given.substr(0, head));
    text += Normalized(edited.substr(from, to - from), FormOf(given));
    return text.append(given.substr(given.size() - tail));
}

}  // namespace quillory
