#include <quillory/exchange/TextPlace.h>

#include <algorithm>

namespace quillory {
namespace {

std::uint64_t CountCharacters(std::string_view text) {
    constexpr unsigned kTopBits = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    return static_cast<std::uint64_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & kTopBits) != kContinuation;
    }));
}

}  // namespace

void TextPlace::Pass(std::string_view text) {
    std::uint64_t lines = 0;
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        text.remove_prefix(end + 1);
        ++lines;
    }
    if (lines != 0) *this = {{at.line + lines, 1}};
    at.column += CountCharacters(text);
    if (!inIndent) return;
    const std::size_t blanks = std::min(text.find_first_not_of(" \t"), text.size());
    indent += blanks;
    inIndent = blanks == text.size();
}

LineColumn TextPlace::After(std::string_view text) const {
    TextPlace place = *this;
    place.Pass(text);
    return place.at;
}

}  // namespace quillory
