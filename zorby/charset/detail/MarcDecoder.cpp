#include <zorby/charset/detail/MarcDecoder.h>

namespace zorby {
namespace {

constexpr unsigned char kFieldEnd = 0x1E;
constexpr unsigned char kDelimiter = 0x1F;

// If several rows have the same bytes, the first one counts, as in a search of the table.
constexpr DecodeIndex BuildDecodeIndex() {
    DecodeIndex index;
    for (auto& row : index.single) row.fill(kNoCode);
    for (auto& row : index.pair) row.fill(kNoCode);
    std::uint8_t leads = 0;
    for (int code = 0; code < 256; ++code) {
        const KeyRecord& row = kKeyTable[static_cast<std::size_t>(code)];
        std::int16_t* place = &index.single[DecodeIndex::Slot(row.alphabet)][row.marc1];
        if (row.marc2 != 0) {
            if (index.lead[row.marc2] == 0) index.lead[row.marc2] = ++leads;
            place = &index.pair.at(index.lead[row.marc2])[row.marc1];
        }
        if (*place == kNoCode) *place = static_cast<std::int16_t>(code);
    }
    return index;
}

// Sets the alphabet that the escape at `p` names. An unknown escape sets the basic alphabet.
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

constinit const DecodeIndex kDecode = BuildDecodeIndex();

DecodedMarcChar DecodeEscapedMARCChar(const unsigned char* p, const unsigned char* end) {
    if (end - p < 2) {
        currentAlphabet = kAlphabetBasic;
        return {' ', false, 1};
    }
    const bool valid = TakeEscape(p);
    p += 2;
    if (p == end || *p == kFieldEnd || *p == kDelimiter) return {0, true, 2};
    return DecodePlainMARCChar(p, end, valid, 2);
}

}  // namespace zorby
