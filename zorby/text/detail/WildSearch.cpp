#include <zorby/charset/Compare.h>
#include <zorby/text/detail/LiteralSearch.h>
#include <zorby/text/detail/WildSearch.h>

#include <algorithm>

namespace zorby {
namespace {

bool IsPunctuation(char byte) {
    return CSIsPunctuation(static_cast<unsigned char>(byte)) != 0;
}

// Signs that a word or number may have inside, as in "1,000" and "A-B".
bool MayBeInside(char byte) {
    return byte == ',' || byte == '.' || byte == '$' || byte == '-';
}

}  // namespace

WildSearch::WildSearch(const WildPattern& pattern, std::string_view text, bool wholeWords,
                       std::ptrdiff_t position)
    : pattern_(pattern),
      text_(text),
      size_(static_cast<std::ptrdiff_t>(text.size())),
      wholeWords_(wholeWords),
      match_{position, -1, -1} {}

bool WildSearch::Run() {
    for (; match_.position < size_; ++match_.position) {
        if (!PutPieces()) return false;
        if (HasPunctuation()) continue;
        if (!wholeWords_) {
            ExtendToText();
            return true;
        }
        if (match_.start >= size_) return false;
        if (IsWholeWord()) {
            ExtendToWord();
            return true;
        }
        match_.position -= questionRun_;
    }
    return false;
}

// Returns false if nowhere in the rest of the text is room for the pieces.
bool WildSearch::PutPieces() {
    leadingStar_ = trailingStar_ = literalSeen_ = false;
    questionRun_ = 0;
    for (const WildPattern::Piece& piece : pattern_.pieces_) {
        if (!Put(piece)) return false;
    }
    SettleMatch();
    return true;
}

bool WildSearch::Put(const WildPattern::Piece& piece) {
    switch (piece.kind) {
        case WildPattern::Kind::kStar:
            PutStar();
            return true;
        case WildPattern::Kind::kQuestions:
            return PutQuestions(piece.length);
        case WildPattern::Kind::kLiteral:
            return PutLiteral(piece);
    }
    return false;
}

void WildSearch::PutStar() {
    if (!literalSeen_) {
        leadingStar_ = true;
        match_.start = match_.position;
    }
    trailingStar_ = true;
}

bool WildSearch::PutQuestions(std::ptrdiff_t count) {
    if (!literalSeen_) {
        questionRun_ = count;
        match_.start = match_.position;
    }
    match_.position += count;
    return match_.position <= size_;
}

bool WildSearch::PutLiteral(const WildPattern::Piece& piece) {
    const std::size_t found =
        FindLiteral(text_, static_cast<std::size_t>(match_.position), piece.literal, piece.rarest);
    if (found == std::string_view::npos) return false;
    const auto start = static_cast<std::ptrdiff_t>(found);
    if (!literalSeen_) match_.start = start;
    trailingStar_ = false;
    literalSeen_ = true;
    match_.position = start + piece.length;
    return true;
}

void WildSearch::SettleMatch() {
    match_.end = std::max({match_.position - 1, match_.start, std::ptrdiff_t{0}});
    if (literalSeen_) match_.start = std::max(match_.start - questionRun_, std::ptrdiff_t{0});
}

// Whether a pattern without a literal covers punctuation, the last byte not counted.
bool WildSearch::HasPunctuation() {
    if (literalSeen_ || questionRun_ == 0) return false;
    for (std::ptrdiff_t i = std::max(match_.start, cleanUntil_); i < match_.end; ++i) {
        if (IsPunctuation(text_[static_cast<std::size_t>(i)])) return true;
    }
    cleanUntil_ = match_.end;
    return false;
}

// A star at an end reaches the end of the word from wherever the match is.
bool WildSearch::IsWholeWord() const {
    return match_.end < size_ && (leadingStar_ || StartsWord(match_.start)) &&
           (trailingStar_ || EndsWord(match_.end));
}

void WildSearch::ExtendToText() {
    if (leadingStar_) match_.start = 0;
    if (trailingStar_) match_.end = size_;
}

void WildSearch::ExtendToWord() {
    while (!StartsWord(match_.start)) --match_.start;
    while (!EndsWord(match_.end)) ++match_.end;
}

bool WildSearch::StartsWord(std::ptrdiff_t index) const {
    return index == 0 || DividesWords(index - 1, index - 2);
}

bool WildSearch::EndsWord(std::ptrdiff_t index) const {
    return index + 1 == size_ || DividesWords(index + 1, index + 2);
}

// `beyond` is the index on the other side of the byte, as seen from the word.
bool WildSearch::DividesWords(std::ptrdiff_t index, std::ptrdiff_t beyond) const {
    const char byte = text_[static_cast<std::size_t>(index)];
    if (byte == ' ') return true;
    if (!MayBeInside(byte)) return IsPunctuation(byte);
    return beyond < 0 || beyond >= size_ || text_[static_cast<std::size_t>(beyond)] == ' ';
}

}  // namespace zorby
