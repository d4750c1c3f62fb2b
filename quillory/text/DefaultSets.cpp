#include <quillory/text/DefaultSets.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/CodePoint.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

using CodePointTable = std::array<char16_t, 256>;

// A mark over two letters stands with its first half.
char16_t MarkOrCharacter(unsigned char code) {
    const auto* const mark = zorby::DoubleDiacriticOf(code);
    return mark == nullptr ? zorby::CodePointOf(code) : mark->codePoint;
}

bool IsHalfMark(char16_t codePoint) {
    return codePoint >= 0xFE20 && codePoint <= 0xFE2F;
}

// By the byte of MARC-8; 0 if none is known.
CodePointTable MakeTable() {
    CodePointTable codePoints{};
    codePoints[0xC7] = u'\u00DF';  // these two are younger than the one-byte code
    codePoints[0xC8] = u'\u20AC';
    for (unsigned i = 0x20; i < codePoints.size(); ++i) {
        const auto code = static_cast<unsigned char>(i);
        const zorby::KeyRecord& character = zorby::KeyRecordOf(code);
        const bool isInSets = character.marc2 == 0 && character.alphabet == zorby::kAlphabetBasic;
        const char16_t codePoint = isInSets ? MarkOrCharacter(code) : u'\0';
        if (codePoint != 0 && !IsHalfMark(codePoint)) codePoints[character.marc1] = codePoint;
    }
    return codePoints;
}

char16_t CodePointOfMarc8(char c) {
    static const CodePointTable codePoints = MakeTable();
    return codePoints[static_cast<unsigned char>(c)];
}

bool IsDiacritic(char c) {
    return static_cast<unsigned char>(c) >= 0xE0;
}

}  // namespace

bool IsDefaultDiacritic(char marc8) {
    return IsDiacritic(marc8) && CodePointOfMarc8(marc8) != 0;
}

bool IsInDefaultSets(std::string_view text) {
    const char* const end = text.data() + text.size();
    for (const char* at = text.data();; ++at) {
        at += zorby::PlainRunLength(at, end);
        if (at == end) return true;
        if (IsDefaultDiacritic(*at)) ++at;
        if (at == end || IsDiacritic(*at) || CodePointOfMarc8(*at) == 0) return false;
    }
}

std::optional<YazConverter::Outcome> DecodeInDefaultSets(std::string_view marc8,
                                                         std::string& utf8) {
    const bool isKnown = !marc8.empty() && std::ranges::all_of(marc8, CodePointOfMarc8);
    const std::string_view letter = marc8.substr(
        static_cast<std::size_t>(std::ranges::find_if_not(marc8, IsDiacritic) - marc8.begin()));
    if (!isKnown || letter.size() > 1) return std::nullopt;
    utf8.clear();
    if (letter.empty()) return YazConverter::kIncomplete;
    AppendUtf8(CodePointOfMarc8(letter.front()), utf8);
    for (const char c : marc8.substr(0, marc8.size() - 1)) AppendUtf8(CodePointOfMarc8(c), utf8);
    return YazConverter::kDone;
}

}  // namespace quillory
