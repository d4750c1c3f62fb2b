#pragma once

#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <string_view>

namespace quillory {

// Calls `take(code, text)` for each subfield of a data field, in order. What stands before the
// first delimiter (indicators), and a delimiter at the very end, are no subfields.
template <class Take>
void ForEachSubfield(std::string_view content, Take&& take) {
    std::size_t start = content.find(zorby::kDelimiter);
    while (start < content.size()) {
        const std::size_t end =
            std::min(content.find(zorby::kDelimiter, start + 1), content.size());
        if (end > start + 1) take(content[start + 1], content.substr(start + 2, end - start - 2));
        start = end;
    }
}

}  // namespace quillory
