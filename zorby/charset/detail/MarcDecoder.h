#pragma once

#include <zorby/charset/detail/Engine.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace zorby {

inline constexpr unsigned char kEscape = 0x1B;

// The escapes to the alphabets, from basic to superscript.
inline constexpr std::array<std::array<unsigned char, 2>, 4> kEscapes{{
    {kEscape, 's'},
    {kEscape, 'g'},
    {kEscape, 'b'},
    {kEscape, 'p'},
}};

inline constexpr std::int16_t kNoCode = -1;

// An index of the key table by MARC-8 bytes. All rows of two bytes belong to the basic alphabet.
struct DecodeIndex {
    // The slots are those of the alphabets 0 to 3, and one for the code that belongs to none of
    // them.
    static constexpr std::size_t kSlots = 5;
    static constexpr std::size_t Slot(unsigned char alphabet) {
        return alphabet < 4 ? alphabet : 4;
    }

    // The code of a one-byte character, by slot and byte.
    std::array<std::array<std::int16_t, 256>, kSlots> single{};
    // The code of a letter with a diacritic, by the row that `lead` has for the diacritic and by
    // the letter.
    std::array<std::array<std::int16_t, 256>, 8> pair{};
    std::array<std::uint8_t, 256> lead{};  // row number in `pair`, 0 where no pair begins
};

extern const DecodeIndex kDecode;

struct DecodedMarcChar {
    unsigned char code;  // `Qm` code; 0 if the data ends with an escape
    bool valid;
    int consumed;  // bytes, at least 1, never beyond the end
};

// Decodes a character that may begin with an escape, which changes the alphabet in force.
DecodedMarcChar DecodeEscapedMARCChar(const unsigned char* p, const unsigned char* end);

// Decodes a character in the alphabet in force. `before` bytes were consumed on the way to it.
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

// Decodes one MARC-8 character in the alphabet in force. `p` must be before `end`, and no byte of
// the text may be 0.
inline DecodedMarcChar DecodeMARCChar(const unsigned char* p, const unsigned char* end) {
    return *p == kEscape ? DecodeEscapedMARCChar(p, end) : DecodePlainMARCChar(p, end, true, 0);
}

}  // namespace zorby
