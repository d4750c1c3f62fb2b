#pragma once

#include <string_view>

namespace quillory {

// Without the white space at both ends.
inline std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || ('\t' <= c && c <= '\r'); };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace quillory
