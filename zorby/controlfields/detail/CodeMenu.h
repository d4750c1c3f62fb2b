#pragma once

#include <zorby/elements/CFPart.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zorby {

// A code list as it is compiled in. An item consists of lines that each end in a newline: the code,
// the text and, in the combined form of item, the second code, which may be empty.
struct CodeList {
    const char* const* rows;      // the title, the items in display order, a null
    const char* texts;            // the texts in the same order, each terminated, and an empty one
    const std::uint16_t* byCode;  // the indices of the items, in order of the items' bytes
    int count;

    const char* Title() const { return rows[0]; }
    // The index must be from 0 to count - 1.
    const char* Item(int index) const { return rows[index + 1]; }
};

using CodeMenu = const CodeList*;

// Returns the list of an element, or null. Elements that share a list return the same pointer.
CodeMenu FindCodeMenu(CFPart part);

// Returns what is left of an item after its first `lines` lines.
constexpr std::string_view AfterLines(std::string_view item, int lines) {
    for (; lines > 0; --lines) item.remove_prefix(item.find('\n') + 1);
    return item;
}

constexpr std::string_view FirstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

constexpr std::string_view CodeOf(std::string_view item) {
    return FirstLine(item);
}

constexpr std::string_view TextOf(std::string_view item) {
    return FirstLine(AfterLines(item, 1));
}

}  // namespace zorby
