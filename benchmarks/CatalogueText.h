#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby::bench {

// A kind of text, in MARC-8 and in the `Qm` code. No text holds a byte at which a conversion would
// end early. The same call gives the same text.
struct TextKind {
    const char* name;
    std::string (*marc8)(std::size_t size);  // exactly `size` bytes
    std::string (*qm)(std::size_t size);
};

// Latin prose with 2 diacritics among 100 letters, half of them on letters that have a precomposed
// code.
inline constexpr std::string_view kLatin = "latin";

// Latin prose first, then the texts that are hard on a converter.
const std::vector<TextKind>& TextKinds();

std::string LatinMarc8(std::size_t size);

// The text in pieces of `size` bytes; a shorter rest is left out.
std::vector<std::string> Pieces(const std::string& text, std::size_t size);

}  // namespace zorby::bench
