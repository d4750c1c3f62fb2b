#include <quillory/text/CharacterReference.h>
#include <quillory/text/MarkupText.h>
#include <quillory/text/PlainBytes.h>
#include <quillory/text/PlainXmlText.h>
#include <quillory/text/Utf8.h>
#include <quillory/text/Utf8Size.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

namespace quillory {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

// A reader of XML changes a carriage return, and any white space in an attribute, into another
// sign.
std::string_view XmlEscape(char c) {
    switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '"':
            return "&quot;";
        case '\t':
            return "&#9;";
        case '\n':
            return "&#10;";
        case '\r':
            return "&#13;";
        default:
            return {};
    }
}

bool IsXmlCharacter(char32_t codePoint) {
    if (codePoint < 0x20) return codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
    return codePoint != 0xFFFE && codePoint != 0xFFFF;
}

// Appends what stands for the byte at the front of a text, which is no character.
template <class Text>
void AppendReplacement(std::string_view text, Text& out, Losses& losses) {
    losses.Add(kLossReplaced, static_cast<unsigned char>(text.front()));
    out += kReplacement;
}

// Appends one character, or a byte that is none, that does not stand in XML as it is. Result: its
// bytes.
std::size_t AppendXmlMisfit(std::string_view text, TextBuilder& out, Losses& losses) {
    const Utf8Char character = DecodeUtf8(text);
    if (!character.valid) {
        AppendReplacement(text, out, losses);
    } else if (IsXmlCharacter(character.codePoint)) {
        out += XmlEscape(text.front());
    } else {
        losses.Add(kLossXmlSign, character.codePoint);
        std::string reference;
        AppendReference(character.codePoint, reference);
        AppendXmlText(reference, out, losses);
    }
    return character.size;
}

// Appends what stands in front of a control character, or all of a text without it. Result: how
// many bytes that is.
std::size_t AppendXmlUpTo(std::optional<char> control, std::string_view text, TextBuilder& out,
                          Losses& losses) {
    std::string_view rest = text;
    for (;;) {
        rest.remove_prefix(AppendPlainXml(rest, out));
        if (rest.empty() || rest.front() == control) return text.size() - rest.size();
        const std::size_t size = AppendXmlBeyondAscii(rest, out);
        rest.remove_prefix(size != 0 ? size : AppendXmlMisfit(rest, out, losses));
    }
}

using ByteSet = std::array<bool, 256>;

// The bytes that are copied into JSON as they are: ASCII but for controls and signs.
constexpr ByteSet kPlainInJson = [] {
    ByteSet plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) plain[byte] = byte != '"' && byte != '\\';
    return plain;
}();

// Bytes at the front of a text that are copied into JSON as they are.
std::size_t SizeOfJsonRun(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size()) {
        const bool isPlain = kPlainInJson[static_cast<unsigned char>(text[size])];
        const std::size_t next = isPlain ? 1 : XmlCharacterSize(text.substr(size));
        if (next == 0) break;
        size += next;
    }
    return size;
}

void AppendJsonCharacter(char32_t codePoint, std::string_view bytes, std::string& out) {
    constexpr std::string_view kSigns = "\"\\\b\f\n\r\t";
    constexpr std::string_view kLetters = "\"\\bfnrt";
    const std::size_t sign = kSigns.find(bytes.front());
    if (codePoint >= 0x80) {
        out += bytes;
    } else if (sign != kSigns.npos) {
        out += '\\';
        out += kLetters[sign];
    } else {
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(codePoint));
        out += escape;
    }
}

}  // namespace

void AppendXmlText(std::string_view text, TextBuilder& out, Losses& losses) {
    AppendXmlUpTo(std::nullopt, text, out, losses);
}

std::size_t AppendXmlSubfield(std::string_view text, TextBuilder& out, Losses& losses) {
    return AppendXmlUpTo(zorby::kDelimiter, text, out, losses);
}

void AppendXmlSign(std::string_view sign, TextBuilder& out, Losses& losses) {
    const Utf8Char character = DecodeUtf8(sign);
    if (!character.valid || IsXmlCharacter(character.codePoint)) {
        AppendXmlText(sign, out, losses);
    } else {
        AppendReplacement(sign, out, losses);
    }
}

void AppendJsonText(std::string_view text, std::string& out, Losses& losses) {
    if (IsAsciiWithout<' ', '"', '\\'>(text)) {
        out += text;
        return;
    }
    for (;;) {
        const std::size_t run = SizeOfJsonRun(text);
        out += text.substr(0, run);
        text.remove_prefix(run);
        if (text.empty()) return;
        const Utf8Char character = DecodeUtf8(text);
        if (character.valid) {
            AppendJsonCharacter(character.codePoint, text.substr(0, character.size), out);
        } else {
            AppendReplacement(text, out, losses);
        }
        text.remove_prefix(character.size);
    }
}

}  // namespace quillory
