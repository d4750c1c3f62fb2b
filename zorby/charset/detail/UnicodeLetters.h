#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zorby {

// A letter of a text in Unicode, taken apart.
struct UnicodeLetter {
    std::size_t start = 0;   // in units of the text
    std::size_t length = 0;  // with its marks
    char16_t base = 0;
    std::u16string marks;     // in their order
    bool isMark = false;      // a mark alone, without a base
    unsigned char whole = 0;  // the code of a letter that is one character of the text, or 0
};

// Reads a text letter by letter. A mark at the front of the text is a letter of its own.
class UnicodeLetters {
public:
    explicit UnicodeLetters(std::u16string_view text) : text_(text) {}

    bool AtEnd() const { return at_ == text_.size(); }
    UnicodeLetter Next();
    // Gives the plain characters here of which none can have a mark.
    std::u16string_view PlainRun();

private:
    char32_t Peek(std::size_t& size) const;
    char32_t Take();
    bool AtMark() const;

    std::u16string_view text_;
    std::size_t at_ = 0;
};

}  // namespace zorby
