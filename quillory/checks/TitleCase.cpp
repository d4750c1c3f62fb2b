#include <quillory/checks/TitleCase.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/text/QmText.h>
#include <zorby/charset/Compare.h>

#include <algorithm>
#include <array>
#include <string>

namespace quillory {
namespace {

constexpr std::size_t kFewestCapitals = 2;

enum LetterCase : unsigned char { kNoCase, kCapital, kSmall };
using CaseTable = std::array<LetterCase, 256>;

// A letter has a case if it has a partner in the other case.
CaseTable BuildCases() {
    CaseTable cases{};
    std::string codes(cases.size(), '\0');
    for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = static_cast<char>(i);
    std::string lower = codes;
    std::string upper = codes;
    zorby::CSMakeLower(lower);
    zorby::CSMakeUpper(upper);
    const auto at = [&cases](char code) -> LetterCase& {
        return cases[static_cast<unsigned char>(code)];
    };
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (upper[i] != codes[i]) {
            cases[i] = kSmall;
            at(upper[i]) = kCapital;
        }
        if (lower[i] != codes[i]) {
            cases[i] = kCapital;
            at(lower[i]) = kSmall;
        }
    }
    return cases;
}

LetterCase CaseOf(char code) {
    static const CaseTable cases = BuildCases();
    return cases[static_cast<unsigned char>(code)];
}

bool IsASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return ' ' <= c && c <= '~'; });
}

bool HasSmallASCII(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return 'a' <= c && c <= 'z'; });
}

}  // namespace

TitleCase::Capitals TitleCase::CapitalsOfQm(std::string_view qm) {
    Capitals found;
    bool inWord = false;
    for (const char c : qm) {
        const LetterCase letterCase = CaseOf(c);
        if (c == ' ') inWord = false;
        if (letterCase == kSmall) found.hasSmall = true;
        if (letterCase != kCapital) continue;
        ++found.letters;
        if (!inWord) ++found.words;
        inWord = true;
    }
    return found;
}

bool TitleCase::ToQm(std::string_view text, Charset charset) {
    auto& converter = converters_[static_cast<std::size_t>(charset)];
    if (!converter) {
        converter = std::make_unique<TextConverter>(charset, kCharsetUtf8, kNormalFormC);
    }
    utf8_.clear();
    Losses losses;
    converter->Append(text, utf8_, losses);
    return Utf8ToQm(utf8_, qm_);
}

// The first small letter decides about most texts. The letters of an escape sequence don't count:
// they are not part of the text.
TitleCase::Capitals TitleCase::CapitalsOf(const Record& record, std::string_view text,
                                          Charset charset) {
    constexpr Capitals kSmallOnly{0, 0, true};
    const bool hasEscapes = text.find('\033') != text.npos;
    if (!hasEscapes && HasSmallASCII(text)) return kSmallOnly;
    if (IsASCII(text)) return CapitalsOfQm(text);
    if (charset == kCharsetAuto) charset = ActualCharset(record);
    return ToQm(text, charset) ? CapitalsOfQm(qm_) : kSmallOnly;
}

bool TitleCase::IsUpperCase(const Record& record, std::string_view content, Charset charset) {
    constexpr std::string_view kRestOfTitle = "bcnp";
    std::string_view title;
    bool restHasSmall = false;
    ForEachSubfield(content, [&](char code, std::string_view text) {
        if (code == 'a' && title.empty()) title = text;
        const bool isRest = kRestOfTitle.find(code) != kRestOfTitle.npos;
        restHasSmall = restHasSmall || (isRest && HasSmallASCII(text));
    });
    const Capitals capitals = CapitalsOf(record, title, charset);
    if (capitals.hasSmall || capitals.letters < kFewestCapitals) return false;
    return capitals.words > 1 || !restHasSmall;
}

}  // namespace quillory
