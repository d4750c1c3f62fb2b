#pragma once

#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

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

// What a directory entry says of its field.
struct FieldSpan {
    std::size_t length = 0;  // with the field terminator; 0 if the numbers are not all digits
    std::size_t start = 0;
};

// Reads the nine digits of a directory entry after its tag.
inline FieldSpan ReadSpan(const char* digits) {
    if constexpr (std::endian::native != std::endian::little) {
        const int length = DecimalField({digits, 4}, 0, 4);
        const int start = DecimalField({digits + 4, 5}, 0, 5);
        if (length < 0 || start < 0) return {};
        return {static_cast<std::size_t>(length), static_cast<std::size_t>(start)};
    }
    constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0;
    constexpr std::uint64_t kOfDigits = 0x3030303030303030;
    const unsigned last = static_cast<unsigned char>(digits[8]) - unsigned{'0'};
    std::uint64_t eight = 0;
    std::memcpy(&eight, digits, sizeof eight);
    const std::uint64_t misfits = ((eight & kHighHalves) ^ kOfDigits) |
                                  (((eight + 0x0606060606060606) & kHighHalves) ^ kOfDigits);
    if (misfits != 0 || last > 9) return {};
    // Neighbours are put together: digits to pairs, and pairs to fours.
    eight = ((eight & 0x0F0F0F0F0F0F0F0F) * (10 * 256 + 1)) >> 8;
    eight = ((eight & 0x00FF00FF00FF00FF) * (100 * 65536 + 1)) >> 16;
    constexpr std::uint64_t kFour = 0xFFFF;
    return {eight & kFour, (eight >> 32 & kFour) * 10 + last};
}

// What stands in the fields of a record.
struct FieldMarks {
    std::size_t fieldEnds = 0;
    bool lacksCode = false;  // a delimiter has no subfield code after it
};

inline constexpr std::size_t kMarksBlock = 16;  // bytes that compilers compare at once

// Adds what is in so many blocks, at most 255, after which one more byte follows.
inline void AddMarks(const char* bytes, std::size_t blocks, FieldMarks& marks) {
    static_assert((kFieldEnd | 1) == kDelimiter && (kDelimiter | 1) == kDelimiter);
    std::array<unsigned char, kMarksBlock> ends{};
    std::array<unsigned char, kMarksBlock> faults{};
    for (const char* const stop = bytes + blocks * kMarksBlock; bytes != stop;
         bytes += kMarksBlock) {
        for (std::size_t i = 0; i < kMarksBlock; ++i) {
            const bool isEnd = bytes[i] == kFieldEnd;
            const bool isDelimiter = bytes[i] == kDelimiter;
            const bool isNoCode = (bytes[i + 1] | 1) == kDelimiter;
            ends[i] = static_cast<unsigned char>(ends[i] + isEnd);
            faults[i] |= static_cast<unsigned char>(isDelimiter & isNoCode);
        }
    }
    const auto words = std::bit_cast<std::array<std::uint64_t, 2>>(ends);
    constexpr std::uint64_t kEveryOther = 0x00FF00FF00FF00FF;
    for (const std::uint64_t word : words) {
        const std::uint64_t pairs = (word & kEveryOther) + ((word >> 8) & kEveryOther);
        marks.fieldEnds += (pairs * 0x0001000100010001) >> 48;
    }
    const auto faultWords = std::bit_cast<std::array<std::uint64_t, 2>>(faults);
    marks.lacksCode = marks.lacksCode || (faultWords[0] | faultWords[1]) != 0;
}

// A byte follows the fields.
inline FieldMarks MarksIn(std::string_view fields) {
    constexpr std::size_t kMostBlocks = 255;
    FieldMarks marks;
    while (fields.size() >= kMarksBlock) {
        const std::size_t blocks = std::min(fields.size() / kMarksBlock, kMostBlocks);
        AddMarks(fields.data(), blocks, marks);
        fields.remove_prefix(blocks * kMarksBlock);
    }
    std::array<char, kMarksBlock + 1> rest{};
    std::memcpy(rest.data(), fields.data(), fields.size() + 1);
    AddMarks(rest.data(), 1, marks);
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
