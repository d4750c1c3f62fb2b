#pragma once

#include <quillory/queries/RegularExpression.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

enum TextOperator : std::int32_t {
    kTextEquals,
    kTextContains,
    kTextStarts,
    kTextEnds,
    kTextLike,    // the library's own search, with * and ?
    kTextMatches  // a regular expression
};

// What a text is tested for. Unless the test is exact, case and diacritics don't count. Blanks at
// the ends of a text don't count for "equals", "starts" and "ends".
//
// A coded text, that of an indicator or of positions, is of fixed length: blanks at its end alone
// don't count, and a # in the pattern stands for a blank.
class TextTest {
public:
    TextTest(TextOperator op, std::string_view pattern, bool exact);

    // Why the pattern can't be used; empty if it can.
    std::string Fault() const;

    // Texts are UTF-8, those for an exact test in normal form C.
    bool Holds(std::string_view utf8, bool isCoded);
    // Where in the text the pattern is, from front to back: at least one range if the test holds,
    // which may be empty.
    std::vector<TextRange> RangesIn(std::string_view utf8, bool isCoded);

private:
    std::optional<TextRange> Find(std::string_view text, bool isCoded, std::size_t from) const;
    std::optional<TextRange> FindAtEnds(std::string_view text, bool isCoded) const;

    TextOperator op_;
    bool exact_;
    std::string pattern_;       // folded
    std::string codedPattern_;  // with blanks for #
    std::optional<RegularExpression> expression_;
    std::string folded_;
};

}  // namespace quillory
