#include <quillory/checks/UpperCaseText.h>
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

bool IsUpperCase(std::string_view qm) {
    const auto has = [](LetterCase letterCase) {
        return [letterCase](char c) { return CaseOf(c) == letterCase; };
    };
    const auto capitals = static_cast<std::size_t>(std::ranges::count_if(qm, has(kCapital)));
    return capitals >= kFewestCapitals && std::ranges::none_of(qm, has(kSmall));
}

bool ToQm(std::string_view text, Charset charset, std::string& qm) {
    std::string utf8;
    Losses losses;
    TextConverter(charset, kCharsetUtf8, kNormalFormC).Append(text, utf8, losses);
    return Utf8ToQm(utf8, qm);
}

}  // namespace

// Most titles are decided by their first small letter. An escape sequence has letters too, that
// are none.
bool IsUpperCaseText(std::string_view text, Charset charset) {
    if (IsASCII(text)) return IsUpperCase(text);
    const bool hasEscapes = text.find('\033') != text.npos;
    if (!hasEscapes && HasSmallASCII(text)) return false;
    std::string qm;
    return ToQm(text, charset, qm) && IsUpperCase(qm);
}

}  // namespace quillory
