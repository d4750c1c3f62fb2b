#include <quillory/text/CharacterReference.h>
#include <quillory/text/MarkupText.h>
#include <quillory/text/PlainBytes.h>
#include <quillory/text/Utf8.h>
#include <quillory/text/Utf8Size.h>

#include <array>
#include <cstdio>

namespace quillory {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

using ByteSet = std::array<bool, 256>;

// The bytes that are copied as they are: ASCII but for controls and the signs given.
constexpr ByteSet PlainBytes(std::string_view signs) {
    ByteSet plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        plain[byte] = signs.find(static_cast<char>(byte)) == signs.npos;
    }
    return plain;
}

constexpr ByteSet kPlainInXml = PlainBytes("<>&\"");
constexpr ByteSet kPlainInJson = PlainBytes("\"\\");

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

void AppendXmlCharacter(char32_t codePoint, std::string_view bytes, std::string& out,
                        Losses& losses) {
    if (!IsXmlCharacter(codePoint)) {
        losses.Add(kLossXmlSign, codePoint);
        std::string reference;
        AppendReference(codePoint, reference);
        AppendXmlText(reference, out, losses);
        return;
    }
    const std::string_view escape = XmlEscape(bytes.front());
    out += escape.empty() ? bytes : escape;
}

void AppendJsonCharacter(char32_t codePoint, std::string_view bytes, std::string& out, Losses&) {
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

// Bytes at the front of a text that are copied as they are.
std::size_t SizeOfRun(std::string_view text, const ByteSet& plain) {
    std::size_t size = 0;
    while (size < text.size()) {
        const bool isPlain = plain[static_cast<unsigned char>(text[size])];
        const std::size_t next = isPlain ? 1 : XmlCharacterSize(text.substr(size));
        if (next == 0) break;
        size += next;
    }
    return size;
}

template <typename AppendCharacter>
void AppendText(std::string_view text, const ByteSet& plain, AppendCharacter appendCharacter,
                std::string& out, Losses& losses) {
    for (;;) {
        const std::size_t run = SizeOfRun(text, plain);
        out.append(text.substr(0, run));
        text.remove_prefix(run);
        if (text.empty()) return;
        const Utf8Char character = DecodeUtf8(text);
        if (character.valid) {
            appendCharacter(character.codePoint, text.substr(0, character.size), out, losses);
        } else {
            losses.Add(kLossReplaced, static_cast<unsigned char>(text.front()));
            out += kReplacement;
        }
        text.remove_prefix(character.size);
    }
}

}  // namespace

void AppendXmlText(std::string_view text, std::string& out, Losses& losses) {
    if (IsAsciiWithout<' ', '<', '>', '&', '"'>(text)) {
        out += text;
        return;
    }
    AppendText(text, kPlainInXml, AppendXmlCharacter, out, losses);
}

void AppendJsonText(std::string_view text, std::string& out, Losses& losses) {
    if (IsAsciiWithout<' ', '"', '\\'>(text)) {
        out += text;
        return;
    }
    AppendText(text, kPlainInJson, AppendJsonCharacter, out, losses);
}

void AppendXmlSign(std::string_view sign, std::string& out, Losses& losses) {
    const Utf8Char character = DecodeUtf8(sign);
    if (!character.valid || IsXmlCharacter(character.codePoint)) {
        AppendXmlText(sign, out, losses);
        return;
    }
    losses.Add(kLossReplaced, static_cast<unsigned char>(sign.front()));
    out += kReplacement;
}

}  // namespace quillory
