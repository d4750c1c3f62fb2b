#pragma once

#include <zorby/charset/detail/Engine.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace zorby {

inline constexpr unsigned char kEscape = 0x1B;

// The escape to each alphabet from basic to superscript.
inline constexpr std::array<std::array<unsigned char, 2>, 4> kEscapes{{
    {kEscape, 's'},
    {kEscape, 'g'},
    {kEscape, 'b'},
    {kEscape, 'p'},
}};

inline constexpr std::int16_t kNoCode = -1;

// The key table by MARC-8 bytes. All rows of two bytes belong to the basic alphabet.
struct DecodeIndex {
    // Alphabets 0 to 3, and a slot for the code that belongs to none.
    static constexpr std::size_t kSlots = 5;
    static constexpr std::size_t Slot(unsigned char alphabet) {
        return alphabet < 4 ? alphabet : 4;
    }

    // Code of a one-byte character, by slot and byte.
    std::array<std::array<std::int16_t, 256>, kSlots> single{};
    // Code of a diacritic and a letter, by the row that the diacritic has in `lead`, and the
    // letter.
    std::array<std::array<std::int16_t, 256>, 8> pair{};
    std::array<std::uint8_t, 256> lead{};  // row number in `pair`, 0 where no pair begins
};

extern const DecodeIndex kDecode;

struct DecodedMarcChar {
    unsigned char code;  // `Qm` code; 0 where an escape stands before the end of the data
    bool valid;
    int consumed;  // bytes, at least 1, never beyond the end
};

// A character that may begin with an escape, which changes the alphabet in force.
DecodedMarcChar DecodeEscapedMARCChar(const unsigned char* p, const unsigned char* end);

// A character in the alphabet in force, `before` bytes behind where it was reached from.
inline DecodedMarcChar DecodePlainMARCChar(const unsigned char* p, const unsigned char* end,
                                           bool valid, int before) {
    if (currentAlphabet == kAlphabetBasic && kDecode.lead[*p] != 0 && end - p >= 2) {
        const std::int16_t code = kDecode.pair[kDecode.lead[*p]][p[1]];
        if (code != kNoCode) return {static_cast<unsigned char>(code), valid, before + 2};
    }
    const std::int16_t code = kDecode.single[DecodeIndex::Slot(currentAlphabet)][*p];
    if (code == kNoCode) return {' ', false, before + 1};
    return {static_cast<unsigned char>(code), valid, before + 1};
}

// One character of MARC-8 in the alphabet in force. `p` is before `end`, and no byte of the text is
// 0.
inline DecodedMarcChar DecodeMARCChar(const unsigned char* p, const unsigned char* end) {
    return *p == kEscape ? DecodeEscapedMARCChar(p, end) : DecodePlainMARCChar(p, end, true, 0);
}

}  // namespace zorby
