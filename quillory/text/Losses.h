#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace quillory {

// What became of a character that an output can't carry.
enum LossKind : std::int32_t {
    kLossReference,     // a code point, written as &#xXXXX; nothing is lost
    kLossReplaced,      // a byte that is no character, written as U+FFFD
    kLossNoLetter,      // a diacritic (code point) without a letter, set on a blank
    kLossEscape,        // an escape byte in UTF-8, written as &#x001B;
    kLossIndicator,     // a byte that is no indicator, written as a blank
    kLossMicrolifSign,  // a byte that old MicroLIF does not give back
    kLossXmlSign        // a code point that can't stand in XML, written as &#xXXXX;
};

// "U+00DF (ß)", without the character itself where it can't be seen.
std::string CodePointName(std::uint32_t codePoint);

// Counts by kind and character.
class Losses {
public:
    void Add(LossKind kind, std::uint32_t character, std::uint64_t count = 1) {
        counts_[{kind, character}] += count;
    }
    void Add(const Losses& other);
    void Clear() { counts_.clear(); }
    bool Empty() const { return counts_.empty(); }
    // The first character of a kind, if there is any.
    std::optional<std::uint32_t> First(LossKind kind) const;
    // Whether anything can't come back: more than references were written.
    bool Real() const;

    // One line a character, each led by `lead`.
    std::string Text(const std::string& lead) const;

private:
    std::map<std::pair<LossKind, std::uint32_t>, std::uint64_t> counts_;
};

}  // namespace quillory
