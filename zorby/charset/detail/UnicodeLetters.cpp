#include <zorby/charset/CodePoint.h>
#include <zorby/charset/detail/Compositions.h>
#include <zorby/charset/detail/Engine.h>
#include <zorby/charset/detail/UnicodeLetters.h>

#include <algorithm>
#include <array>

namespace zorby {
namespace {

constexpr auto kCompositions = SortedCompositions();
constexpr char16_t kHorn = 0x031B;
constexpr std::u16string_view kHornedLetters = u"OƠUƯoơuư";  // each letter without its horn first

constexpr char32_t kFirstBeyondUnit = 0x10000;
constexpr char16_t kBeyondUnit = 0xFFFF;  // stands for any character that takes two units

struct Range {
    char16_t first;
    char16_t last;
};
// The blocks of combining marks.
constexpr Range kMarkBlocks[] = {
    {0x0300, 0x036F}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF}, {0xFE20, 0xFE2F},
};

bool IsMark(char32_t codePoint) {
    return std::any_of(std::begin(kMarkBlocks), std::end(kMarkBlocks), [codePoint](Range block) {
        return block.first <= codePoint && codePoint <= block.last;
    });
}

const Composition* FindComposition(char32_t codePoint) {
    if (codePoint >= kFirstBeyondUnit) return nullptr;
    const Composition wanted{static_cast<char16_t>(codePoint), 0, 0};
    const auto* const found = std::lower_bound(kCompositions.begin(), kCompositions.end(), wanted);
    return found != kCompositions.end() && found->codePoint == codePoint ? found : nullptr;
}

char16_t MarkOfMarc8(unsigned char marc) {
    for (const KeyRecord& row : kKeyTable) {
        const auto code = static_cast<unsigned char>(&row - kKeyTable.data());
        if (IsDiacritic(code) && row.marc1 == marc) return CodePointOf(code);
    }
    return 0;
}

// Appends a character, or the letter and the marks of which it is made.
void AppendTakenApart(char32_t codePoint, std::u16string& characters) {
    const KeyRecord& row = kKeyTable[CodeOf(codePoint)];
    if (CodeOf(codePoint) != 0 && row.marc2 != 0) {
        characters += row.marc1;
        characters += MarkOfMarc8(row.marc2);
    } else if (const Composition* const composition = FindComposition(codePoint)) {
        AppendTakenApart(composition->letter, characters);
        if (composition->mark != 0) characters += composition->mark;
    } else {
        characters += codePoint < kFirstBeyondUnit ? static_cast<char16_t>(codePoint) : kBeyondUnit;
    }
}

// A horn is part of its letter.
void JoinHorn(UnicodeLetter& letter) {
    if (letter.marks.empty() || letter.marks.front() != kHorn) return;
    const std::size_t at = kHornedLetters.find(letter.base);
    if (at == kHornedLetters.npos || at % 2 != 0) return;
    letter.base = kHornedLetters[at + 1];
    letter.marks.erase(0, 1);
}

}  // namespace

// A surrogate alone is a character of its own.
char32_t UnicodeLetters::Peek(std::size_t& size) const {
    const char16_t first = text_[at_];
    const char16_t second = at_ + 1 < text_.size() ? text_[at_ + 1] : u'\0';
    const bool isPair = first >= 0xD800 && first < 0xDC00 && second >= 0xDC00 && second < 0xE000;
    size = isPair ? 2 : 1;
    if (!isPair) return first;
    return kFirstBeyondUnit + ((first - char32_t{0xD800}) << 10U) + (second - char32_t{0xDC00});
}

char32_t UnicodeLetters::Take() {
    std::size_t size = 0;
    const char32_t codePoint = Peek(size);
    at_ += size;
    return codePoint;
}

bool UnicodeLetters::AtMark() const {
    std::size_t size = 0;
    return !AtEnd() && IsMark(Peek(size));
}

UnicodeLetter UnicodeLetters::Next() {
    UnicodeLetter letter;
    letter.start = at_;
    letter.isMark = AtMark();
    const char32_t codePoint = Take();
    AppendTakenApart(codePoint, letter.marks);
    if (!letter.isMark) {
        letter.whole = AtMark() ? static_cast<unsigned char>(0) : CodeOf(codePoint);
        letter.base = letter.marks.front();
        letter.marks.erase(0, 1);
        while (AtMark()) AppendTakenApart(Take(), letter.marks);
        JoinHorn(letter);
    }
    letter.length = at_ - letter.start;
    return letter;
}

std::u16string_view UnicodeLetters::PlainRun() {
    const auto isPlain = [this](std::size_t at) {
        return at == text_.size() ||
               (text_[at] < 0x7F && IsPrintableASCII(static_cast<unsigned char>(text_[at])));
    };
    const std::size_t start = at_;
    while (!AtEnd() && isPlain(at_) && isPlain(at_ + 1)) ++at_;
    return text_.substr(start, at_ - start);
}

}  // namespace zorby
