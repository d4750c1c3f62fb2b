#pragma once

#include <cstddef>
#include <string_view>

namespace zorby {

// Returns the index of the byte of a literal that a catalogue's texts have least often.
std::size_t RarestByte(std::string_view literal);

// Returns the first index from `from` on at which a text has the literal, or npos. The literal is
// not empty, and `rarest` is what RarestByte returns for it. The time grows with the lengths of
// both texts alone, whatever they hold.
std::size_t FindLiteral(std::string_view text, std::size_t from, std::string_view literal,
                        std::size_t rarest);

}  // namespace zorby
