#pragma once

#include <zorby/elements/OffsetTables.h>

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace zorby {

inline constexpr char kBlank = ' ';
inline constexpr std::size_t kFieldEndSize = 1;
inline constexpr std::size_t kFrom006To008 = 17;  // from 006/01-17 to 008/18-34

inline std::string_view UpToZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

// A control field in a buffer: the table of its elements, and its bytes.
template <class Byte>
struct Field {
    const tagCFOFFSETENTRY* table = nullptr;
    std::span<Byte> bytes;
};

// Finds the bytes of an element, as far as the buffer reaches. Returns false if the field doesn't
// have the element.
template <class Byte>
bool FindPart(const Field<Byte>& field, CFPart part, std::span<Byte>& bytes) {
    const tagCFOFFSETENTRY* row = FindOffset(field.table, part);
    if (row == nullptr) return false;
    const auto first = std::min(static_cast<std::size_t>(row->first), field.bytes.size());
    const auto width = std::min(static_cast<std::size_t>(row->Width()), field.bytes.size() - first);
    bytes = field.bytes.subspan(first, width);
    return true;
}

// Returns 1, or 0 if the field doesn't have the element; so does WritePart. The text ends at a zero
// byte.
inline int ReadPart(const Field<const char>& field, CFPart part, std::string& text) {
    std::span<const char> bytes;
    if (!FindPart(field, part, bytes)) return 0;
    text = UpToZero({bytes.data(), bytes.size()});
    return 1;
}

// Pads a short text with blanks, and cuts a long one.
inline int WritePart(const Field<char>& field, CFPart part, std::string_view text) {
    std::span<char> bytes;
    if (!FindPart(field, part, bytes)) return 0;
    std::fill(bytes.begin(), bytes.end(), kBlank);
    UpToZero(text).copy(bytes.data(), bytes.size());
    return 1;
}

// Returns the element that holds the form of item in the combined form of item, or `otherwise`.
inline CFPart FormOfItemPart(CFType type006, CFPart otherwise) {
    switch (type006) {
        case CF006Books:
            return CFP006BooksFormOfItem;
        case CF006Mixed:
            return CFP006MixedFormOfItem;
        case CF006MusicSound:
            return CFP006MusicSoundFormOfItem;
        case CF006Continuing:
            return CFP006ContinuingFormOfItem;
        default:
            return otherwise;
    }
}

}  // namespace zorby
