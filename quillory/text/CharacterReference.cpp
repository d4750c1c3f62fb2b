#include <quillory/text/CharacterReference.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace quillory {
namespace {

struct Reference {
    char32_t codePoint = 0;
    std::size_t size = 0;  // bytes; 0 if there is none
};

// A reference to a character at the front of `text`.
Reference ReadReference(std::string_view text) {
    constexpr std::string_view kLead = "&#x";
    constexpr std::size_t kMostDigits = 6;
    if (!text.starts_with(kLead)) return {};
    const std::string_view digits = text.substr(kLead.size(), kMostDigits + 1);
    const std::size_t size = digits.find(';');
    if (size == digits.npos || size == 0) return {};
    std::uint32_t value = 0;
    const char* const end = digits.data() + size;
    if (std::from_chars(digits.data(), end, value, 16).ptr != end) return {};
    const bool isCharacter = value >= 0x20 && value != 0x7F && value <= 0x10FFFF &&
                             !(value >= 0xD800 && value <= 0xDFFF);
    if (!isCharacter) return {};
    return {value, kLead.size() + size + 1};
}

}  // namespace

void AppendReference(char32_t codePoint, std::string& text) {
    char reference[16];
    std::snprintf(reference, sizeof reference, "&#x%04X;", static_cast<unsigned>(codePoint));
    text += reference;
}

std::string WithoutReferences(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const Reference reference = ReadReference(text);
        if (reference.size != 0) {
            AppendUtf8(reference.codePoint, out);
            text.remove_prefix(reference.size);
            continue;
        }
        const std::size_t next = std::min(text.find('&', 1), text.size());
        out.append(text.substr(0, next));
        text.remove_prefix(next);
    }
    return out;
}

std::string WithReferencesKept(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        if (ReadReference(text).size != 0) {
            AppendReference('&', out);
        } else {
            out += text.front();
        }
        const std::size_t next = std::min(text.find('&', 1), text.size());
        out.append(text.substr(1, next - 1));
        text.remove_prefix(next);
    }
    return out;
}

}  // namespace quillory
