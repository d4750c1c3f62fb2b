#include <quillory/exchange/LineBlock.h>

#include <algorithm>

namespace quillory {

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const bool twoBytes = text.substr(end).starts_with("\r\n");
    text.remove_prefix(std::min(end + (twoBytes ? 2 : 1), text.size()));
    return line;
}

std::string_view LineBlock::Find(Input& input) const {
    constexpr std::size_t kFirstLook = std::size_t{1} << 14;
    constexpr std::size_t kLongest = std::size_t{4} << 20;
    std::size_t look = kFirstLook;
    for (;;) {
        const std::string_view window = input.Peek(look);
        const std::size_t end = EndOfRecord(window);
        if (end != window.npos) return window.substr(0, end);
        if (window.size() < look || look >= kLongest) return window;
        look = std::max(look * 4, window.size() + 1);
    }
}

}  // namespace quillory
