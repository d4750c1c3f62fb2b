#include <quillory/queries/FoldedText.h>
#include <quillory/queries/TextTest.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>
#include <zorby/text/General.h>

#include <algorithm>

namespace quillory {
namespace {

std::size_t FirstInk(std::string_view text) {
    return std::min(text.find_first_not_of(' '), text.size());
}

std::size_t EndOfInk(std::string_view text) {
    return text.find_last_not_of(' ') + 1;
}

// Without the blanks that don't count.
std::string_view Core(std::string_view text, bool isCoded) {
    text = text.substr(0, EndOfInk(text));
    return isCoded ? text : text.substr(FirstInk(text));
}

std::string FoldedPattern(TextOperator op, std::string_view pattern, bool exact) {
    if (exact) return Normalized(pattern, kNormalFormC);
    // Letters such as the S of \S would mean something else if they were folded.
    return op == kTextMatches ? WithoutMarks(pattern) : Folded(pattern);
}

std::optional<TextRange> RangeOf(std::size_t begin, std::size_t size) {
    if (begin == std::string_view::npos) return std::nullopt;
    return TextRange{begin, begin + size};
}

// The library's own search. Its ends are the first and the last byte, or past the last one. A star
// at the front reaches back to the beginning of the text, and here to where the search starts.
std::optional<TextRange> FindLike(std::string_view text, std::string_view pattern,
                                  std::size_t from) {
    auto position = static_cast<int>(from);
    int first = 0;
    int last = 0;
    constexpr int kWholeWords = 0;
    constexpr int kWildcards = 1;
    if (zorby::CGeneral::FindWild(text, pattern, kWholeWords, position, first, last, kWildcards) ==
        0) {
        return std::nullopt;
    }
    const auto end = std::min(static_cast<std::size_t>(last) + 1, text.size());
    return TextRange{std::min(std::max(static_cast<std::size_t>(first), from), end), end};
}

}  // namespace

TextTest::TextTest(TextOperator op, std::string_view pattern, bool exact)
    : op_(op), exact_(exact), pattern_(FoldedPattern(op, pattern, exact)), codedPattern_(pattern_) {
    std::ranges::replace(codedPattern_, '#', ' ');
    if (op == kTextMatches) expression_.emplace(pattern_, exact);
}

std::string TextTest::Fault() const {
    return expression_ ? expression_->Fault() : std::string();
}

std::optional<TextRange> TextTest::FindAtEnds(std::string_view text, bool isCoded) const {
    const std::string_view core = Core(text, isCoded);
    const auto start = static_cast<std::size_t>(core.data() - text.data());
    const std::string_view pattern = isCoded ? codedPattern_ : pattern_;
    const std::size_t size = pattern.size();
    if (op_ == kTextStarts && core.starts_with(pattern)) return TextRange{start, start + size};
    if (op_ == kTextEnds && core.ends_with(pattern)) {
        return TextRange{start + core.size() - size, start + core.size()};
    }
    if (op_ == kTextEquals && core == Core(pattern, isCoded)) return RangeOf(start, core.size());
    return std::nullopt;
}

std::optional<TextRange> TextTest::Find(std::string_view text, bool isCoded,
                                        std::size_t from) const {
    if (op_ == kTextContains) {
        const std::string& pattern = isCoded ? codedPattern_ : pattern_;
        return RangeOf(text.find(pattern, from), pattern.size());
    }
    if (op_ == kTextMatches) return expression_->FindMatch(text, from);
    if (op_ == kTextLike) return FindLike(text, isCoded ? codedPattern_ : pattern_, from);
    return from == 0 ? FindAtEnds(text, isCoded) : std::nullopt;
}

bool TextTest::Holds(std::string_view utf8, bool isCoded) {
    std::string_view text = utf8;
    if (!exact_) {
        Fold(utf8, folded_);
        text = folded_;
    }
    if (op_ == kTextMatches) return expression_->IsIn(text);
    return Find(text, isCoded, 0).has_value();
}

std::vector<TextRange> TextTest::RangesIn(std::string_view utf8, bool isCoded) {
    std::optional<FoldedText> folded;
    if (!exact_) folded.emplace(utf8);
    const std::string_view text = folded ? std::string_view(folded->text) : utf8;
    std::vector<TextRange> ranges;
    std::size_t from = 0;
    while (const auto found = Find(text, isCoded, from)) {
        if (found->begin == found->end && !ranges.empty()) break;
        ranges.push_back(*found);
        if (found->end <= from) break;
        from = found->end;
    }
    for (TextRange& range : ranges) {
        if (folded) range = {folded->origins[range.begin], folded->origins[range.end]};
    }
    return ranges;
}

}  // namespace quillory
