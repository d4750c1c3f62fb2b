#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// Where a search starts, and what it finds. Indices are in bytes.
struct ZORBY_EXPORT WildMatch {
    std::ptrdiff_t position = 0;  // where the search starts; after a match, where the next one does
    std::ptrdiff_t start = -1;
    std::ptrdiff_t end = -1;  // the last byte, or the length of the text after a "*" at the end
};

// A text to look for, taken apart once for searches in many texts. Texts are in the Qm code, and
// case counts.
//
// "*" stands for any bytes, "?" for at least one byte, "\*" and "\?" for the signs themselves. The
// search takes the first place for each part and never tries another, so that the text between two
// parts may be longer than the signs between them say: "a?b" is found in "a--b". Its time grows
// with the lengths of pattern and text alone, whatever they hold.
class ZORBY_EXPORT WildPattern {
public:
    // Without `useWildcards` all bytes stand for themselves.
    WildPattern(std::string_view pattern, bool useWildcards);

    // Searches from match.position on. Returns false if it finds nothing; what `match` is then
    // means nothing, but if the pattern is empty or the position is not in the text, it stays as it
    // was.
    //
    // A "*" at an end of the pattern stands for the rest of the text on that side, or of the word
    // with `wholeWords`, where a match begins and ends as a word does. Blanks and punctuation end a
    // word, but a comma, full stop, dollar sign or hyphen does so only beside a blank or an end of
    // the text. A match for "?" alone has no punctuation before its last byte.
    bool Find(std::string_view text, bool wholeWords, WildMatch& match) const;

private:
    friend class WildSearch;

    enum class Kind { kStar, kQuestions, kLiteral };

    struct Piece {
        Kind kind = Kind::kStar;
        std::ptrdiff_t length = 0;  // in bytes of text
        std::string literal;
        std::size_t rarest = 0;  // index of the literal's rarest byte
    };

    static Piece LiteralPiece(std::string literal);
    static Piece NextPiece(std::string_view& pattern);

    std::vector<Piece> pieces_;
};

}  // namespace zorby
