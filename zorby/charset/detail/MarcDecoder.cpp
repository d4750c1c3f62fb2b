#include <zorby/charset/detail/Engine.h>
#include <zorby/charset/detail/MarcDecoder.h>

#include <array>
#include <cstdint>

namespace zorby {
namespace {

constexpr unsigned char kEscape = 0x1B;
constexpr unsigned char kFieldEnd = 0x1E;
constexpr unsigned char kDelimiter = 0x1F;

constexpr std::array<std::array<unsigned char, 2>, 4> kEscapes{{
    {kEscape, 's'},
    {kEscape, 'g'},
    {kEscape, 'b'},
    {kEscape, 'p'},
}};

// Alphabets 0 to 3, and a slot for the code that belongs to none.
constexpr std::size_t kSlots = 5;
constexpr std::size_t Slot(unsigned char alphabet) {
    return alphabet < 4 ? alphabet : 4;
}

constexpr std::int16_t kNoCode = -1;

struct DecodeIndex {
    // Code of a one-byte character, by slot and byte.
    std::array<std::array<std::int16_t, 256>, kSlots> single{};
    // Code of a diacritic and a letter, by the row that the diacritic has in `lead`, and the
    // letter.
    std::array<std::array<std::int16_t, 256>, 8> pair{};
    std::array<std::uint8_t, 256> lead{};  // row number in `pair`, 0 where no pair begins
};

// The first row in table order wins, as in a walk of the table. All rows of two bytes belong to the
// basic alphabet.
constexpr DecodeIndex BuildDecodeIndex() {
    DecodeIndex index;
    for (auto& row : index.single) row.fill(kNoCode);
    for (auto& row : index.pair) row.fill(kNoCode);
    std::uint8_t leads = 0;
    for (int code = 0; code < 256; ++code) {
        const KeyRecord& row = kKeyTable[static_cast<std::size_t>(code)];
        std::int16_t* place = &index.single[Slot(row.alphabet)][row.marc1];
        if (row.marc2 != 0) {
            if (index.lead[row.marc2] == 0) index.lead[row.marc2] = ++leads;
            place = &index.pair.at(index.lead[row.marc2])[row.marc1];
        }
        if (*place == kNoCode) *place = static_cast<std::int16_t>(code);
    }
    return index;
}

constexpr DecodeIndex kDecode = BuildDecodeIndex();

// Sets the alphabet that the escape at `p` names. An unknown one sets the basic alphabet.
bool TakeEscape(const unsigned char* p) {
    for (std::size_t alphabet = 0; alphabet < kEscapes.size(); ++alphabet) {
        if (p[1] == kEscapes[alphabet][1]) {
            currentAlphabet = static_cast<unsigned char>(alphabet);
            return true;
        }
    }
    currentAlphabet = kAlphabetBasic;
    return false;
}

}  // namespace

const unsigned char* EscapeTo(unsigned char alphabet) {
    return kEscapes[alphabet].data();
}

DecodedMarcChar DecodeMARCChar(const unsigned char* p, const unsigned char* end) {
    int consumed = 1;
    bool valid = true;
    if (*p == kEscape) {
        if (end - p < 2) {
            currentAlphabet = kAlphabetBasic;
            return {' ', false, 1};
        }
        valid = TakeEscape(p);
        p += 2;
        if (p == end || *p == kFieldEnd || *p == kDelimiter) return {0, true, 2};
        consumed = 3;
    }
    if (currentAlphabet == kAlphabetBasic && end - p >= 2) {
        const std::int16_t code = kDecode.pair[kDecode.lead[*p]][p[1]];
        if (code != kNoCode) return {static_cast<unsigned char>(code), valid, consumed + 1};
    }
    const std::int16_t code = kDecode.single[Slot(currentAlphabet)][*p];
    if (code == kNoCode) return {' ', false, consumed};
    return {static_cast<unsigned char>(code), valid, consumed};
}

}  // namespace zorby
