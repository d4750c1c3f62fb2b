#include <zorby/text/General.h>
#include <zorby/text/WildPattern.h>
#include <zorby/text/detail/LiteralSearch.h>
#include <zorby/text/detail/WildSearch.h>

#include <algorithm>
#include <utility>

namespace zorby {
namespace {

constexpr std::string_view kWildcards = "*?";

// The literal, which does not begin with a wildcard, ends before the next one without a backslash.
std::size_t LengthOfLiteral(std::string_view pattern) {
    std::size_t end = pattern.find_first_of(kWildcards);
    while (end != std::string_view::npos && pattern[end - 1] == '\\') {
        end = pattern.find_first_of(kWildcards, end + 1);
    }
    return std::min(end, pattern.size());
}

std::string WithoutBackslashes(std::string_view escaped) {
    std::string literal;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const bool escapes = escaped[i] == '\\' && i + 1 < escaped.size() &&
                             kWildcards.find(escaped[i + 1]) != std::string_view::npos;
        if (!escapes) literal += escaped[i];
    }
    return literal;
}

}  // namespace

WildPattern::WildPattern(std::string_view pattern, bool useWildcards) {
    if (!useWildcards && !pattern.empty()) {
        pieces_.push_back(LiteralPiece(std::string(pattern)));
        return;
    }
    while (!pattern.empty()) pieces_.push_back(NextPiece(pattern));
}

WildPattern::Piece WildPattern::LiteralPiece(std::string literal) {
    const auto length = static_cast<std::ptrdiff_t>(literal.size());
    const std::size_t rarest = RarestByte(literal);
    return {Kind::kLiteral, length, std::move(literal), rarest};
}

// Takes the piece off the pattern.
WildPattern::Piece WildPattern::NextPiece(std::string_view& pattern) {
    const char first = pattern.front();
    const bool isWildcard = kWildcards.find(first) != std::string_view::npos;
    const std::size_t length = isWildcard
                                   ? std::min(pattern.find_first_not_of(first), pattern.size())
                                   : LengthOfLiteral(pattern);
    const std::string_view piece = pattern.substr(0, length);
    pattern.remove_prefix(length);
    if (!isWildcard) return LiteralPiece(WithoutBackslashes(piece));
    if (first == '*') return {};
    return {Kind::kQuestions, static_cast<std::ptrdiff_t>(length), "", 0};
}

bool WildPattern::Find(std::string_view text, bool wholeWords, WildMatch& match) const {
    const auto size = static_cast<std::ptrdiff_t>(text.size());
    if (pieces_.empty() || match.position >= size) return false;
    WildSearch search(*this, text, wholeWords, std::max<std::ptrdiff_t>(match.position, 0));
    const bool found = search.Run();
    match = search.Match();
    return found;
}

int CGeneral::FindWild(std::string_view text, std::string_view pattern, int wholeWords,
                       int& position, int& foundStart, int& foundEnd, int useWildcards) {
    WildMatch match{position, foundStart, foundEnd};
    const bool found = WildPattern(pattern, useWildcards != 0).Find(text, wholeWords != 0, match);
    position = static_cast<int>(match.position);
    foundStart = static_cast<int>(match.start);
    foundEnd = static_cast<int>(match.end);
    return found ? 1 : 0;
}

}  // namespace zorby
