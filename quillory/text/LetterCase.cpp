#include <quillory/text/LetterCase.h>
#include <quillory/text/Utf8.h>

namespace quillory {
namespace {

constexpr char32_t kSharpS = 0xDF;  // its capital is hardly ever written

char32_t Upper(char32_t c) {
    if (c == kSharpS) return c;
    return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(c)));
}

char32_t Lower(char32_t c) {
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(c)));
}

bool IsLetter(char32_t c) {
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(c));
    return UTF8PROC_CATEGORY_LU <= category && category <= UTF8PROC_CATEGORY_LO;
}

// Inside of a word as at its end: "don't", "l'art".
bool IsApostrophe(char32_t c) {
    constexpr char32_t kRightQuote = 0x2019;
    return c == '\'' || c == kRightQuote;
}

// Says of letter after letter whether it is to be a capital.
class Capitalizer {
public:
    explicit Capitalizer(LetterCase letterCase) : case_(letterCase) {}

    char32_t Next(char32_t c) {
        const bool isLetter = IsLetter(c);
        const char32_t cased = isLetter && IsCapital() ? Upper(c) : Lower(c);
        hasLetter_ = hasLetter_ || isLetter;
        inWord_ = IsOfWord(c) || (inWord_ && IsApostrophe(c));
        return cased;
    }

private:
    bool IsCapital() const {
        if (case_ == LetterCase::Title) return !inWord_;
        return case_ == LetterCase::Upper || (case_ == LetterCase::Sentence && !hasLetter_);
    }

    LetterCase case_;
    bool inWord_ = false;
    bool hasLetter_ = false;
};

}  // namespace

bool IsOfWord(char32_t codePoint) {
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(codePoint));
    return UTF8PROC_CATEGORY_LU <= category && category <= UTF8PROC_CATEGORY_NO;
}

std::string InCase(std::string_view utf8, LetterCase letterCase) {
    Capitalizer capitalizer(letterCase);
    std::string text;
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        if (c.valid) {
            AppendUtf8(capitalizer.Next(c.codePoint), text);
        } else {
            text += utf8.front();
        }
        utf8.remove_prefix(c.size);
    }
    return text;
}

}  // namespace quillory
