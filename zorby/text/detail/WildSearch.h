#pragma once

#include <zorby/text/WildPattern.h>

namespace zorby {

// One search for a pattern in a text. Each attempt puts all pieces of the pattern into the text,
// one after the other; if what they cover is not wanted, the next attempt starts after it.
class WildSearch {
public:
    WildSearch(const WildPattern& pattern, std::string_view text, bool wholeWords,
               std::ptrdiff_t position);

    bool Run();
    const WildMatch& Match() const { return match_; }

private:
    bool PutPieces();
    bool Put(const WildPattern::Piece& piece);
    void PutStar();
    bool PutQuestions(std::ptrdiff_t count);
    bool PutLiteral(const WildPattern::Piece& piece);
    void SettleMatch();

    bool HasPunctuation();
    bool IsWholeWord() const;
    void ExtendToText();
    void ExtendToWord();
    bool StartsWord(std::ptrdiff_t index) const;
    bool EndsWord(std::ptrdiff_t index) const;
    bool DividesWords(std::ptrdiff_t index, std::ptrdiff_t beyond) const;

    const WildPattern& pattern_;
    std::string_view text_;
    std::ptrdiff_t size_;
    bool wholeWords_;
    WildMatch match_;

    // What the attempt has met so far.
    bool leadingStar_ = false;
    bool trailingStar_ = false;
    bool literalSeen_ = false;
    std::ptrdiff_t questionRun_ = 0;  // the last one before any literal

    // No punctuation is between the start of an earlier attempt and this index.
    std::ptrdiff_t cleanUntil_ = 0;
};

}  // namespace zorby
