#include <zorby/charset/Compare.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/detail/Engine.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>

namespace zorby {
namespace {

struct KeyStep {
    unsigned char sort1 = 0;
    unsigned char sort2 = 0;
    unsigned char length = 0;  // bytes that the character adds to a key
    unsigned char isBlank = 0;
    unsigned char isLetter = 0;
    unsigned char isDiacritic = 0;
};

constexpr std::array<KeyStep, 256> BuildKeySteps() {
    std::array<KeyStep, 256> steps{};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto code = static_cast<unsigned char>(i);
        const KeyRecord& row = kKeyTable[i];
        steps[i].sort1 = row.sort1;
        steps[i].sort2 = row.sort2;
        steps[i].length = row.sort2 != 0 ? 2 : 1;
        steps[i].isBlank = row.sort1 == 0x20 ? 1 : 0;
        steps[i].isLetter = IsASCIILetter(code) ? 1 : 0;
        steps[i].isDiacritic = IsDiacritic(code) ? 1 : 0;
    }
    return steps;
}

constexpr std::array<KeyStep, 256> kKeySteps = BuildKeySteps();

constexpr bool IsASCIIPunctuation(unsigned char c) {
    return IsPrintableASCII(c) && c != ' ' && !IsASCIILetter(c) && !IsASCIIDigit(c);
}

// Writes the key of `text` to `key`, which has room for two bytes per character, and returns its
// length. Both sort bytes are always written, and the position then moves over those that count:
// characters of different kinds alternate too often for branches.
std::size_t WriteKey(std::string_view text, char* key) {
    unsigned blankWritten = 0;
    unsigned previousWasLetter = 0;
    char* out = key;
    for (const char c : text) {
        const KeyStep& step = kKeySteps[static_cast<unsigned char>(c)];
        const unsigned skip = step.isDiacritic & (previousWasLetter ^ 1U);
        const unsigned dropped = skip | (step.isBlank & blankWritten);
        out[0] = static_cast<char>(step.sort1);
        out[1] = static_cast<char>(step.sort2);
        out += step.length & (dropped - 1U);
        blankWritten = step.isBlank | (skip & blankWritten);
        previousWasLetter = step.isLetter;
    }
    return static_cast<std::size_t>(out - key);
}

void MapText(std::string& text, const CodeMap& map) {
    CSResetAlphabet();
    for (char& c : text) c = map[static_cast<unsigned char>(c)];
}

constexpr CodeMap LowerMap() {
    CodeMap map{};
    for (std::size_t i = 0; i < map.size(); ++i) {
        const unsigned char lower = kKeyTable[i].lower;
        map[i] = static_cast<char>(lower != 0 ? lower : i);
    }
    for (std::size_t c = 'A'; c <= 'Z'; ++c) map[c] = static_cast<char>(c + 'a' - 'A');
    return map;
}

constexpr CodeMap UpperMap() {
    constexpr std::size_t kFirstOfPairs = 0xDE;
    CodeMap map{};
    for (std::size_t i = 0; i < map.size(); ++i) map[i] = static_cast<char>(i);
    for (std::size_t c = 'a'; c <= 'z'; ++c) map[c] = static_cast<char>(c - ('a' - 'A'));
    for (std::size_t c = kFirstOfPairs; c < map.size(); c += 2) {
        map[c] = static_cast<char>(c + 1);
    }
    return map;
}

constexpr CodeMap kLower = LowerMap();
constexpr CodeMap kUpper = UpperMap();

struct CodeRange {
    unsigned char first;
    unsigned char last;
};

constexpr std::array<CodeRange, 11> kPunctuation{{
    {0x21, 0x2F},
    {0x3A, 0x40},
    {0x5B, 0x60},
    {0x7B, 0x7E},
    {0x86, 0x8A},
    {0x95, 0x95},
    {0x97, 0x97},
    {0x9B, 0x9B},
    {0x9D, 0xA2},
    {0xC2, 0xC5},
    {0xD0, 0xD3},
}};

}  // namespace

void CSpConvertForCompare(std::string* text) {
    CSResetAlphabet();
    const std::string_view whole = std::string_view(*text).substr(0, text->find('\0'));
    const std::unique_ptr<char[]> key(new (std::nothrow) char[2 * whole.size() + 2]);
    if (!key) return;
    const std::string_view written(key.get(), WriteKey(whole, key.get()));
    try {
        *text = written.substr(0, written.find('\0'));
    } catch (const std::bad_alloc&) {
        return;  // left unconverted
    }
}

int CSZorbyComparePreConv(std::string_view a, std::string_view b) {
    if (a.empty() || b.empty()) {
        return static_cast<int>(b.empty()) - static_cast<int>(a.empty());
    }
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if (x != y && !(x == ' ' && IsASCIIPunctuation(y))) return x - y;
    }
    return static_cast<int>(a.size() > common) - static_cast<int>(b.size() > common);
}

int CSZorbyCompare(std::string a, std::string b) {
    CSResetAlphabet();
    CSpConvertForCompare(&a);
    CSpConvertForCompare(&b);
    return CSZorbyComparePreConv(a, b);
}

void CSMakeLower(std::string& text) {
    MapText(text, kLower);
}
void CSMakeUpper(std::string& text) {
    MapText(text, kUpper);
}

int CSIsAlpha(unsigned char code) {
    return IsASCIILetter(code) || IsASCIILetter(kKeyTable[code].sort1) ? 1 : 0;
}

int CSIsNumeric(unsigned char code) {
    return IsASCIIDigit(code) ? 1 : 0;
}

int CSIsPunctuation(unsigned char code) {
    return std::any_of(
               kPunctuation.begin(), kPunctuation.end(),
               [code](CodeRange range) { return range.first <= code && code <= range.last; })
               ? 1
               : 0;
}

int CSIsABlank(unsigned char code) {
    return code == ' ' || kKeyTable[code].sort1 == ' ' ? 1 : 0;
}

int CSIsDiacritic(unsigned char code) {
    return IsDiacritic(code) ? 1 : 0;
}

int CSUsedToSort(unsigned char code) {
    return IsASCIILetter(code) || IsASCIIDigit(code) || kKeyTable[code].sort1 != 0xFF ? 1 : 0;
}

}  // namespace zorby
