#include <quillory/checks/Subfields.h>
#include <quillory/checks/UpperCaseTitle.h>
#include <quillory/exchange/QmText.h>
#include <quillory/exchange/TextConverter.h>
#include <zorby/charset/Compare.h>

#include <algorithm>
#include <array>
#include <string>

namespace quillory {
namespace {

constexpr std::size_t kFewestCapitals = 2;

enum LetterCase : unsigned char { kNoCase, kCapital, kSmall };
using CaseTable = std::array<LetterCase, 256>;

// A letter has a case where there is a partner in the other one.
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

// What the letters of a text in the one-byte code say.
struct Capitals {
    std::size_t words = 0;  // with a capital
    std::size_t letters = 0;
    bool hasSmall = false;
};

Capitals CapitalsOf(std::string_view qm) {
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

bool ToQm(std::string_view text, Charset charset, std::string& qm) {
    std::string utf8;
    Losses losses;
    TextConverter(charset, kCharsetUtf8, kNormalFormC).Append(text, utf8, losses);
    return Utf8ToQm(utf8, qm);
}

// Most texts are decided by their first small letter. An escape sequence has letters too, that are
// none of the text's.
Capitals CapitalsOf(const Record& record, std::string_view text, Charset charset) {
    constexpr Capitals kSmallOnly{0, 0, true};
    if (IsASCII(text)) return CapitalsOf(text);
    const bool hasEscapes = text.find('\033') != text.npos;
    if (!hasEscapes && HasSmallASCII(text)) return kSmallOnly;
    if (charset == kCharsetAuto) charset = ActualCharset(record);
    std::string qm;
    return ToQm(text, charset, qm) ? CapitalsOf(qm) : kSmallOnly;
}

}  // namespace

bool IsUpperCaseTitle(const Record& record, std::string_view content, Charset charset) {
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
