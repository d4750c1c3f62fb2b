#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

enum TokenKind : std::int32_t {
    kTokenEnd,
    kTokenWord,      // anything up to a blank, a sign or the end: 245a, contains, rivers
    kTokenText,      // in quotation marks; two of them within stand for one
    kTokenUnclosed,  // the same, up to the end of the expression
    kTokenSign       // ( ) , = != < <= > >=
};

// A piece of an expression.
struct Token {
    TokenKind kind = kTokenEnd;
    std::size_t offset = 0;
    std::string_view bytes;  // as written

    std::size_t End() const { return offset + bytes.size(); }
    bool IsSign(std::string_view sign) const { return kind == kTokenSign && bytes == sign; }
    // Whether it is this word, in any case; `word` is in small letters.
    bool IsWord(std::string_view word) const;
    // What a word or a text in quotation marks says.
    std::string Text() const;
};

// The token that begins at or after an offset of an expression.
Token TokenAt(std::string_view expression, std::size_t offset);

}  // namespace quillory
