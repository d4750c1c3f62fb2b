#pragma once

#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>

namespace zorby {

// Returns the number that the `size` digits at `at` make, or -1 if they are not all digits or not
// all there.
inline int DecimalField(std::string_view bytes, std::size_t at, std::size_t size) {
    if (at + size > bytes.size()) return -1;
    int number = 0;
    for (const char c : bytes.substr(at, size)) {
        if (c < '0' || c > '9') return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

inline bool IsTag(std::string_view tag) {
    return tag.size() == 3 &&
           std::all_of(tag.begin(), tag.end(), [](char c) { return c > ' ' && c < 0x7F; });
}

inline CommFormatFault Fault(CommFormatReason reason, std::size_t offset,
                             std::string_view tag = {}) {
    return {reason, offset, std::string(tag)};
}

// Whether neither a field end nor a delimiter without a code is in a field's content, told at a
// glance; false where it takes a closer look. Blocks are compared whole, the last one a second time
// in part, since compilers compare many bytes at once.
inline bool IsPlainlySound(std::string_view content) {
    constexpr std::size_t kBlock = 16;
    if (content.size() <= kBlock) return false;
    const std::size_t last = content.size() - kBlock - 1;
    std::array<unsigned char, kBlock> faults{};
    for (std::size_t at = 0;; at = std::min(at + kBlock, last)) {
        const char* const block = content.data() + at;
        for (std::size_t i = 0; i < kBlock; ++i) {
            const bool isEnd = block[i] == kFieldEnd;
            const bool isDelimiter = block[i] == kDelimiter;
            const bool isNextDelimiter = block[i + 1] == kDelimiter;
            faults[i] |= static_cast<unsigned char>(isEnd | (isDelimiter & isNextDelimiter));
        }
        if (at == last) break;
    }
    return faults == std::array<unsigned char, kBlock>{} && content.back() != kFieldEnd &&
           content.back() != kDelimiter;
}

// Whether a data field's content begins with two indicators and a delimiter.
inline bool HasIndicators(std::string_view content) {
    return content.size() > 2 && content[0] != kDelimiter && content[1] != kDelimiter &&
           content[2] == kDelimiter;
}

struct ContentFault {
    CommFormatReason reason = CFR_None;
    std::size_t offset = 0;  // in the content
};

// As CommFormatField::IsDataField, for a tag of three bytes.
inline bool IsDataTag(std::string_view tag) {
    const auto isDigit = [](char c) { return '0' <= c && c <= '9'; };
    return isDigit(tag[0]) && isDigit(tag[1]) && isDigit(tag[2]) &&
           (tag[0] != '0' || tag[1] != '0');
}

// Checks that a data field has two indicators and that its subfields have codes.
inline ContentFault CheckContent(const CommFormatField& field) {
    const std::string_view content = field.content;
    if (!IsDataTag(field.tag)) return {};
    const std::size_t first = content.find(kDelimiter);
    if (std::min(first, content.size()) != 2) return {CFR_Indicators, 0};
    for (std::size_t at = first; at != content.npos; at = content.find(kDelimiter, at + 2)) {
        if (at + 1 == content.size() || content[at + 1] == kDelimiter) {
            return {CFR_SubfieldCode, at};
        }
    }
    return {};
}

}  // namespace zorby
