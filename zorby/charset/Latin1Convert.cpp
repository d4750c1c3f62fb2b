#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/detail/Engine.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <string>

namespace zorby {
namespace {

struct DisplayPair {
    unsigned char letter;
    unsigned char mark;  // display code, ANSI
    unsigned char latin1;
};

// Latin-1 letters that have no precomposed code. The engine has no display codes 0xAA and 0xAC, so
// letters with these marks are written as a letter and a spacing mark.
constexpr std::array<DisplayPair, 11> kDisplayPairs{{
    {'e', 0x5E, 0xEA},
    {'E', 0x5E, 0xCA},
    {'u', 0x5E, 0xFB},
    {'U', 0x5E, 0xDB},
    {'i', 0x60, 0xEC},
    {'I', 0x60, 0xCC},
    {'o', 0x60, 0xF2},
    {'O', 0x60, 0xD2},
    {'a', 0xAA, 0xE4},
    {'A', 0xAA, 0xC4},
    {'A', 0xAC, 0xC5},
}};

unsigned char Merged(unsigned char letter, unsigned char mark) {
    for (const DisplayPair& pair : kDisplayPairs) {
        if (pair.letter == letter && pair.mark == mark) return pair.latin1;
    }
    return 0;
}

struct QmPair {
    unsigned char first = 0;   // 0 if the byte has no code
    unsigned char second = 0;  // 0 if one code is enough
};

struct Latin1Row {
    unsigned char latin1;
    QmPair codes;
};

constexpr std::array<Latin1Row, 11> kLatin1Pairs{{
    {0xC4, {'A', 0xAA}},
    {0xC5, {'A', 0xAC}},
    {0xCA, {'E', 0xA5}},
    {0xCC, {'I', 0xA3}},
    {0xD2, {'O', 0xA3}},
    {0xDB, {'U', 0xA5}},
    {0xE4, {'a', 0xAA}},
    {0xEA, {'e', 0xA5}},
    {0xEC, {'i', 0xA3}},
    {0xF2, {'o', 0xA3}},
    {0xFB, {'u', 0xA5}},
}};

// A single code takes precedence over a pair, and the first row from 0x7F on over later ones.
constexpr std::array<QmPair, 256> BuildFromLatin1() {
    std::array<QmPair, 256> map{};
    for (const Latin1Row& row : kLatin1Pairs) map[row.latin1] = row.codes;
    for (unsigned code = 0xFF; code >= 0x7F; --code) {
        map[kKeyTable[code].displayAnsi] = {static_cast<unsigned char>(code), 0};
    }
    for (unsigned char c = 0x20; c < 0x7F; ++c) map[c] = {c, 0};
    map[0] = {};
    return map;
}

constexpr std::array<QmPair, 256> kFromLatin1 = BuildFromLatin1();

}  // namespace

int CSQmToISO8859(std::string& text, int keepControls) {
    std::string display(std::strlen(text.c_str()) + 1, '\0');
    CSQmToDisplay(text.c_str(), display.data(), kDisplayANSI, keepControls);
    std::string latin1;
    for (std::size_t i = 0; display[i] != 0; ++i) {
        const auto letter = static_cast<unsigned char>(display[i]);
        if (letter == kGlyphMissing) {
            text.resize(display.size() - 1);
            text.replace(0, latin1.size(), latin1);
            return 0;
        }
        const unsigned char merged = Merged(letter, static_cast<unsigned char>(display[i + 1]));
        latin1 += static_cast<char>(merged != 0 ? merged : letter);
        if (merged != 0) ++i;
    }
    text = latin1;
    return 1;
}

void CSISO8859ToQm(std::string& text) {
    CSResetAlphabet();
    std::string codes;
    try {
        codes.reserve(text.size() * 2);
    } catch (const std::bad_alloc&) {
        return;
    }
    for (const char c : text) {
        if (c == 0) break;
        const QmPair pair = kFromLatin1[static_cast<unsigned char>(c)];
        if (pair.first != 0) codes += static_cast<char>(pair.first);
        if (pair.second != 0) codes += static_cast<char>(pair.second);
    }
    text.swap(codes);
}

}  // namespace zorby
