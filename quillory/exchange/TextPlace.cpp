#include <quillory/exchange/TextPlace.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

std::uint64_t CountCharacters(std::string_view text) {
    constexpr unsigned kTopBits = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    return static_cast<std::uint64_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & kTopBits) != kContinuation;
    }));
}

// Compilers look at the bytes of a block at once.
std::uint64_t CountLineEnds(std::string_view text) {
    constexpr std::size_t kTogether = 32;
    constexpr std::size_t kMostBlocks = 255;  // that a byte can count
    std::uint64_t lines = 0;
    while (text.size() >= kTogether) {
        const std::size_t blocks = std::min(text.size() / kTogether, kMostBlocks);
        std::array<unsigned char, kTogether> ends{};
        for (std::size_t block = 0; block < blocks; ++block) {
            const char* const bytes = text.data() + block * kTogether;
            for (std::size_t i = 0; i < kTogether; ++i) {
                ends[i] = static_cast<unsigned char>(ends[i] + (bytes[i] == '\n'));
            }
        }
        for (const unsigned char count : ends) lines += count;
        text.remove_prefix(blocks * kTogether);
    }
    return lines + static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

void TextPlace::Pass(std::string_view text) {
    const std::uint64_t lines = CountLineEnds(text);
    if (lines != 0) {
        *this = {{at.line + lines, 1}};
        text.remove_prefix(text.rfind('\n') + 1);
    }
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
