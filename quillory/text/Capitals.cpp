#include <quillory/text/Capitals.h>
#include <quillory/text/QmText.h>
#include <zorby/charset/Compare.h>

#include <array>
#include <string>

namespace quillory {
namespace {

constexpr std::size_t kFewestCapitals = 2;

enum QmCase : unsigned char { kNoCase, kCapital, kSmall };
using CaseTable = std::array<QmCase, 256>;

// A letter has a case if it has a partner in the other case.
CaseTable BuildCases() {
    CaseTable cases{};
    std::string codes(cases.size(), '\0');
    for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = static_cast<char>(i);
    std::string lower = codes;
    std::string upper = codes;
    zorby::CSMakeLower(lower);
    zorby::CSMakeUpper(upper);
    const auto at = [&cases](char code) -> QmCase& {
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

QmCase CaseOf(char code) {
    static const CaseTable cases = BuildCases();
    return cases[static_cast<unsigned char>(code)];
}

}  // namespace

Capitals CapitalsOfQm(std::string_view qm) {
    Capitals found;
    bool inWord = false;
    for (const char c : qm) {
        const QmCase qmCase = CaseOf(c);
        if (c == ' ') inWord = false;
        if (qmCase == kSmall) found.hasSmall = true;
        if (qmCase != kCapital) continue;
        ++found.letters;
        if (!inWord) ++found.words;
        inWord = true;
    }
    return found;
}

std::optional<Capitals> CapitalsOfUtf8(std::string_view utf8) {
    std::string qm;
    if (!Utf8ToQm(utf8, qm)) return std::nullopt;
    return CapitalsOfQm(qm);
}

bool AreInCapitals(const Capitals& capitals) {
    return !capitals.hasSmall && capitals.letters >= kFewestCapitals;
}

}  // namespace quillory
