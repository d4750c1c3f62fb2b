#pragma once

#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>

namespace zorby {

// Returns the number that the `size` digits at `at` make, or -1 if they are not all digits or not
// all there.
inline int DecimalField(std::string_view bytes, std::size_t at, std::size_t size) {
    if (at + size > bytes.size()) return -1;
    unsigned number = 0;
    unsigned misfits = 0;  // bits that no digit has
    for (const char c : bytes.substr(at, size)) {
        const unsigned digit = static_cast<unsigned char>(c) - unsigned{'0'};
        misfits |= (digit | (digit + 6)) & ~15U;
        number = number * 10 + digit;
    }
    return misfits == 0 ? static_cast<int>(number) : -1;
}

inline bool IsTag(std::string_view tag) {
    return tag.size() == 3 &&
           std::all_of(tag.begin(), tag.end(), [](char c) { return c > ' ' && c < 0x7F; });
}

inline CommFormatFault Fault(CommFormatReason reason, std::size_t offset,
                             std::string_view tag = {}) {
    return {reason, offset, std::string(tag)};
}

// What stands in the fields of a record.
struct FieldMarks {
    std::size_t fieldEnds = 0;
    bool lacksCode = false;  // a delimiter has no subfield code after it
};

// Adds what is in so many blocks, at most 255, after which one more byte follows. Compilers compare
// the bytes of a block at once.
template <std::size_t kBlock>
inline void AddMarks(const char* bytes, std::size_t blocks, FieldMarks& marks) {
    std::array<unsigned char, kBlock> ends{};
    std::array<unsigned char, kBlock> faults{};
    for (const char* const stop = bytes + blocks * kBlock; bytes != stop; bytes += kBlock) {
        for (std::size_t i = 0; i < kBlock; ++i) {
            const bool isEnd = bytes[i] == kFieldEnd;
            const bool isDelimiter = bytes[i] == kDelimiter;
            const bool isNoCode = (bytes[i + 1] == kDelimiter) | (bytes[i + 1] == kFieldEnd);
            ends[i] = static_cast<unsigned char>(ends[i] + isEnd);
            faults[i] |= static_cast<unsigned char>(isDelimiter & isNoCode);
        }
    }
    for (std::size_t i = 0; i < kBlock; ++i) {
        marks.fieldEnds += ends[i];
        marks.lacksCode = marks.lacksCode || faults[i] != 0;
    }
}

// A byte follows the fields.
inline FieldMarks MarksIn(std::string_view fields) {
    constexpr std::size_t kBlock = 16;
    constexpr std::size_t kMostBlocks = 255;
    FieldMarks marks;
    while (fields.size() >= kBlock) {
        const std::size_t blocks = std::min(fields.size() / kBlock, kMostBlocks);
        AddMarks<kBlock>(fields.data(), blocks, marks);
        fields.remove_prefix(blocks * kBlock);
    }
    AddMarks<1>(fields.data(), fields.size(), marks);
    return marks;
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
