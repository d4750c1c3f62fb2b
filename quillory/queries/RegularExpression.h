#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Bytes of a text, from `begin` up to `end`.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

// A regular expression in the syntax of RE2. Whatever the expression, searching takes time in
// proportion to the text, and an expression that would need too much memory is refused.
class RegularExpression {
public:
    // Both the expression and the texts are UTF-8.
    RegularExpression(std::string_view expression, bool matchCase);
    RegularExpression(RegularExpression&&) noexcept;
    RegularExpression& operator=(RegularExpression&&) noexcept;
    ~RegularExpression();

    // Why the expression can't be used, in RE2's words; empty if it can. One that can't be used is
    // found nowhere.
    std::string Fault() const;
    // How many groups in brackets it has.
    std::size_t Groups() const;

    // Looks for the leftmost match from `from` on. `ranges` are then those of the match and of the
    // first nine groups; a group that took no part is empty, at the match's begin.
    bool Find(std::string_view text, std::size_t from, std::vector<TextRange>& ranges) const;
    // The same without the groups, which is faster.
    std::optional<TextRange> FindMatch(std::string_view text, std::size_t from) const;
    bool IsIn(std::string_view text) const;

private:
    class Engine;
    std::unique_ptr<Engine> engine_;
};

}  // namespace quillory
