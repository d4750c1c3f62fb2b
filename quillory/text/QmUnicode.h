#pragma once

#include <quillory/text/Utf8.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillory {

// Carries text between the library's one-byte code and UTF-8, one character or letter with one
// diacritic at a time. It refuses text that could be read in two ways, which a slower road takes.
class QmUnicode {
public:
    // Made when it is first asked for; text comes out of it in the normal form.
    static const QmUnicode& Of(NormalForm form);
    QmUnicode(const QmUnicode&) = delete;
    QmUnicode& operator=(const QmUnicode&) = delete;

    // Appends the text in UTF-8, in the normal form. If it returns false, what it appended is of no
    // use.
    bool AppendUtf8(std::string_view text, std::string& utf8) const;

    // Appends the text in the one-byte code, whether its letters are precomposed or not. False as
    // above.
    bool AppendQm(std::string_view utf8, std::string& qm) const;

private:
    explicit QmUnicode(NormalForm form);

    static constexpr unsigned kFirstMark = 0xA3;
    static constexpr unsigned kMarks = 28;

    // UTF-8 of a character or a letter with a diacritic.
    static constexpr std::size_t kLongest = 7;
    struct Sequence {
        std::array<char, kLongest> bytes{};
        std::uint8_t size = 0;
    };
    // One or two codes; the second is 0 if there is none.
    struct Codes {
        unsigned char first = 0;
        unsigned char second = 0;
    };

    static void Decompose(Sequence& sequence);
    void AddSequence(Codes codes, const std::string& utf8, Sequence& sequence);
    const Codes* Find(char32_t codePoint) const;
    std::size_t AppendLetter(std::string_view before, std::string_view qm, std::string& utf8) const;
    std::size_t AppendLigature(std::string_view qm, std::string& utf8) const;
    std::size_t AppendCodes(std::string_view utf8, std::string& qm) const;

    std::array<Sequence, 256> single_;
    std::array<std::array<Sequence, kMarks>, 256> marked_;
    std::array<Codes, 0x250> low_;  // by code point
    std::unordered_map<char32_t, Codes> high_;
};

}  // namespace quillory
