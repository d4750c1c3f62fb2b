#pragma once

#include <cstddef>
#include <string_view>

namespace quillory {

// The bytes of the character of UTF-8 at the front of a text that is not empty; 0 if none begins
// there. The same as DecodeUtf8 finds, without the code point.
inline std::size_t Utf8Size(std::string_view text) {
    const auto byte = [text](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const auto isContinuation = [](unsigned value) { return value >= 0x80 && value <= 0xBF; };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    if (lead < 0xE0) return isContinuation(byte(1)) ? 2 : 0;
    // These rule out longer forms than needed, surrogates, and what is beyond U+10FFFF.
    const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < least || byte(1) > most || !isContinuation(byte(2))) return 0;
    if (lead < 0xF0) return 3;
    return isContinuation(byte(3)) ? 4 : 0;
}

// The same for a character beyond ASCII that can stand in XML, all but U+FFFE and U+FFFF; 0 for
// anything else.
inline std::size_t XmlCharacterSize(std::string_view text) {
    const std::size_t size = Utf8Size(text);
    const bool isXml =
        size > 1 && !text.starts_with("\xEF\xBF\xBE") && !text.starts_with("\xEF\xBF\xBF");
    return isXml ? size : 0;
}

}  // namespace quillory
