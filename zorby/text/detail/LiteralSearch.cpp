#include <zorby/text/detail/LiteralSearch.h>

#include <algorithm>
#include <array>
#include <vector>

namespace zorby {
namespace {

// Bytes of ordinary text, the most frequent first. All others are rarer than these.
constexpr std::string_view kFrequent = " eainortslcdumhpgfby.,v0k1w2-z";

constexpr std::array<unsigned char, 256> Rarities() {
    std::array<unsigned char, 256> rarities{};
    rarities.fill(kFrequent.size());
    for (std::size_t i = 0; i < kFrequent.size(); ++i) {
        rarities[static_cast<unsigned char>(kFrequent[i])] = static_cast<unsigned char>(i);
    }
    return rarities;
}

constexpr std::array<unsigned char, 256> kRarities = Rarities();

// For each beginning of the literal, how much of the literal it ends in without being it.
std::vector<std::size_t> Borders(std::string_view literal) {
    std::vector<std::size_t> borders(literal.size() + 1);
    std::size_t border = 0;
    for (std::size_t i = 1; i < literal.size(); ++i) {
        while (border > 0 && literal[i] != literal[border]) border = borders[border];
        if (literal[i] == literal[border]) ++border;
        borders[i + 1] = border;
    }
    return borders;
}

// Knuth, Morris and Pratt's search, which never goes back in the text.
std::size_t FindWithoutGoingBack(std::string_view text, std::size_t from,
                                 std::string_view literal) {
    const std::vector<std::size_t> borders = Borders(literal);
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        while (matched > 0 && text[i] != literal[matched]) matched = borders[matched];
        if (text[i] == literal[matched]) ++matched;
        if (matched == literal.size()) return i + 1 - matched;
    }
    return std::string_view::npos;
}

}  // namespace

std::size_t RarestByte(std::string_view literal) {
    const auto rarest = std::ranges::max_element(
        literal, {}, [](char byte) { return kRarities[static_cast<unsigned char>(byte)]; });
    return static_cast<std::size_t>(rarest - literal.begin());
}

std::size_t FindLiteral(std::string_view text, std::size_t from, std::string_view literal,
                        std::size_t rarest) {
    constexpr std::size_t kPatience = 8;  // bytes compared for each byte of the text
    std::size_t compared = 0;
    for (std::size_t next = from; next + literal.size() <= text.size(); ++next) {
        const std::size_t hit = text.find(literal[rarest], next + rarest);
        if (hit == std::string_view::npos) return hit;
        next = hit - rarest;
        const std::string_view candidate = text.substr(next);
        const auto differs = std::ranges::mismatch(literal, candidate).in1;
        if (differs == literal.end()) return next;
        compared += static_cast<std::size_t>(differs - literal.begin());
        if (compared > kPatience * (next - from + literal.size())) {
            return FindWithoutGoingBack(text, next, literal);
        }
    }
    return std::string_view::npos;
}

}  // namespace zorby
