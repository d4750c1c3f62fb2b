#include <zorby/editing/detail/WordAt.h>

#include <algorithm>
#include <cstddef>

namespace zorby {

namespace {

bool IsBracket(char byte) {
    return byte == '(' || byte == ')';
}

char ByteBefore(std::string_view text, int position) {
    return text[static_cast<std::size_t>(position) - 1];
}

int WordStart(std::string_view text, int from) {
    int start = from;
    while (start > 0 && start < static_cast<int>(text.size())) {
        const char before = ByteBefore(text, start);
        if (before == ' ' || IsBracket(before)) break;
        --start;
    }
    return start;
}

int WordEnd(std::string_view text, int from) {
    const int length = static_cast<int>(text.size());
    for (int end = from; end <= length; ++end) {
        const char before = ByteBefore(text, end);
        if (before == ' ') return end;
        if (IsBracket(before)) return end - 1;
    }
    return length;
}

}  // namespace

std::pair<int, int> WordAt(std::string_view text, int position) {
    const int at = std::clamp(position, 0, static_cast<int>(text.size()));
    const int from = at != 0 && ByteBefore(text, at) != ' ' ? at - 1 : at;
    return {WordStart(text, from), WordEnd(text, from + 1)};
}

}  // namespace zorby
