#include <zorby/charset/CodePoint.h>
#include <zorby/charset/detail/Engine.h>

#include <algorithm>
#include <array>

namespace zorby {
namespace {

constexpr unsigned kFirstMapped = 0x80;
constexpr unsigned kFirstPrecomposed = 0xDE;

constexpr std::array<char16_t, kFirstPrecomposed - kFirstMapped> kMapped{{
    // clang-format off
    0x0141, 0x00D8, 0x0110, 0x00DE, 0x00C6, 0x0152, 0x02B9, 0x00B7,  // 80
    0x266D, 0x00AE, 0x00B1, 0x01A0, 0x01AF, 0x02BC, 0x02BB, 0x0142,  // 88
    0x00F8, 0x0111, 0x00FE, 0x00E6, 0x0153, 0x02BA, 0x0131, 0x00A3,  // 90
    0x00F0, 0x01A1, 0x01B0, 0x00B0, 0x2113, 0x2117, 0x00A9, 0x266F,  // 98
    0x00BF, 0x00A1, 0x0309, 0x0300, 0x0301, 0x0302, 0x0303, 0x0304,  // A0
    0x0306, 0x0307, 0x0308, 0x030C, 0x030A, 0xFE20, 0xFE21, 0x0315,  // A8
    0x030B, 0x0310, 0x0327, 0x0328, 0x0323, 0x0324, 0x0325, 0x0333,  // B0
    0x0332, 0x0326, 0x031C, 0x032E, 0xFE22, 0xFE23, 0x0313, 0x03B1,  // B8
    0x03B2, 0x03B3, 0x208D, 0x208E, 0x208A, 0x208B, 0x2080, 0x2081,  // C0
    0x2082, 0x2083, 0x2084, 0x2085, 0x2086, 0x2087, 0x2088, 0x2089,  // C8
    0x207D, 0x207E, 0x207A, 0x207B, 0x2070, 0x00B9, 0x00B2, 0x00B3,  // D0
    0x2074, 0x2075, 0x2076, 0x2077, 0x2078, 0x2079,                  // D8
    // clang-format on
}};

constexpr std::array<DoubleDiacritic, 2> kDoubleDiacritics{{
    {0xAD, 0xAE, 0x0361},  // ligature
    {0xBC, 0xBD, 0x0360},  // tilde
}};

// Display type 1 shows precomposed letters in Windows-1252, which has them where Unicode does.
constexpr char16_t CodePoint(unsigned code) {
    if (code >= kFirstPrecomposed) return kKeyTable[code].displayAnsi;
    if (code >= kFirstMapped) return kMapped[code - kFirstMapped];
    return IsPrintableASCII(static_cast<unsigned char>(code)) ? static_cast<char16_t>(code)
           : code == kBlankBeforeDiacritic                    ? u' '
                                                              : u'\0';
}

struct Pair {
    char16_t codePoint;
    unsigned char code;

    constexpr bool operator<(const Pair& other) const { return codePoint < other.codePoint; }
};

constexpr auto SortedByCodePoint() {
    std::array<Pair, 256 - kFirstMapped> pairs{};
    for (unsigned i = 0; i < pairs.size(); ++i) {
        const auto code = static_cast<unsigned char>(kFirstMapped + i);
        pairs[i] = {CodePoint(code), code};
    }
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

constexpr auto kByCodePoint = SortedByCodePoint();

}  // namespace

char16_t CodePointOf(unsigned char code) {
    return CodePoint(code);
}

unsigned char CodeOf(char32_t codePoint) {
    if (codePoint < kFirstMapped) {
        const auto code = static_cast<unsigned char>(codePoint);
        return IsPrintableASCII(code) ? code : static_cast<unsigned char>(0);
    }
    const auto* const found =
        std::lower_bound(kByCodePoint.begin(), kByCodePoint.end(), codePoint,
                         [](const Pair& pair, char32_t wanted) { return pair.codePoint < wanted; });
    const bool has = found != kByCodePoint.end() && found->codePoint == codePoint;
    return has ? found->code : static_cast<unsigned char>(0);
}

const DoubleDiacritic* DoubleDiacriticOf(unsigned char firstHalf) {
    for (const DoubleDiacritic& known : kDoubleDiacritics) {
        if (known.firstHalf == firstHalf) return &known;
    }
    return nullptr;
}

const DoubleDiacritic* DoubleDiacriticAt(char32_t codePoint) {
    for (const DoubleDiacritic& known : kDoubleDiacritics) {
        if (known.codePoint == codePoint) return &known;
    }
    return nullptr;
}

}  // namespace zorby
