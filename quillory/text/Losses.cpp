#include <quillory/text/Losses.h>

#include <utf8proc.h>

#include <cstdio>

namespace quillory {
namespace {

std::string Format(const char* format, unsigned value) {
    char text[16];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Describe(LossKind kind, std::uint32_t character) {
    switch (kind) {
        case kLossReference:
            return CodePointName(character) + " is not in the character set, written as " +
                   Format("&#x%04X;", character);
        case kLossReplaced:
            return Format("byte 0x%02X", character) + " is no character, written as U+FFFD";
        case kLossNoLetter:
            return CodePointName(character) + " has no letter to stand on, set on a blank";
        case kLossEscape:
            return "byte 0x1B would be an escape of MARC-8, written as &#x001B;";
        case kLossIndicator:
            return Format("byte 0x%02X", character) + " is no indicator, written as a blank";
        case kLossMicrolifSign:
            return Format(character < ' ' ? "byte 0x%02X" : "%c", character) +
                   " does not come back from old MicroLIF";
        case kLossXmlSign:
            return CodePointName(character) + " can't stand in XML, written as " +
                   Format("&#x%04X;", character);
    }
    return {};
}

}  // namespace

std::string CodePointName(std::uint32_t codePoint) {
    const auto code = static_cast<utf8proc_int32_t>(codePoint);
    std::string name = Format("U+%04X", codePoint);
    if (utf8proc_charwidth(code) < 1) return name;
    utf8proc_uint8_t bytes[4];
    const utf8proc_ssize_t size = utf8proc_encode_char(code, bytes);
    return name + " (" + std::string(bytes, bytes + size) + ")";
}

void Losses::Add(const Losses& other) {
    for (const auto& [key, count] : other.counts_) counts_[key] += count;
}

std::optional<std::uint32_t> Losses::First(LossKind kind) const {
    const auto found = counts_.lower_bound({kind, 0});
    if (found == counts_.end() || found->first.first != kind) return std::nullopt;
    return found->first.second;
}

bool Losses::Real() const {
    for (const auto& [key, count] : counts_) {
        if (key.first != kLossReference) return true;
    }
    return false;
}

std::string Losses::Text(const std::string& lead) const {
    std::string text;
    for (const auto& [key, count] : counts_) {
        text += lead + Describe(key.first, key.second) + ": " + std::to_string(count) + "\n";
    }
    return text;
}

}  // namespace quillory
