#include <quillory/text/Utf8.h>
#include <quillory/text/Visible.h>
#include <zorby/charset/PlainRun.h>

#include <cstdio>

namespace quillory {
namespace {

// Those by which text runs the other way, and the separators of lines and paragraphs.
bool TurnsOrBreaks(char32_t c) {
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

template <class... Value>
std::string Formatted(const char* format, Value... value) {
    char text[16];
    std::snprintf(text, sizeof text, format, value...);
    return text;
}

std::string Shown(std::string_view letter, const Utf8Char& c) {
    if (!c.valid) return Formatted("<%02X>", static_cast<unsigned char>(letter.front()));
    if (IsControlCharacter(c.codePoint)) {
        return Formatted("<%02X>", static_cast<unsigned>(c.codePoint));
    }
    if (TurnsOrBreaks(c.codePoint)) {
        return Formatted("<U+%04X>", static_cast<unsigned>(c.codePoint));
    }
    return std::string(letter);
}

std::string VisibleBut(std::string_view text, std::string_view kept) {
    std::string visible;
    const char* const end = text.data() + text.size();
    for (;;) {
        const std::size_t plain = zorby::PlainRunLength(text.data(), end);
        visible.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) return visible;
        const Utf8Char c = DecodeUtf8(text);
        const std::string_view letter = text.substr(0, c.size);
        if (kept.find(letter) != kept.npos) {
            visible += letter;
        } else {
            visible += Shown(letter, c);
        }
        text.remove_prefix(c.size);
    }
}

}  // namespace

std::string Visible(std::string_view text) {
    return VisibleBut(text, "");
}

std::string VisibleLines(std::string_view text) {
    return VisibleBut(text, "\n\t");
}

}  // namespace quillory
