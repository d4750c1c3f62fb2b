#pragma once

#include <algorithm>
#include <string_view>

namespace quillory {

// Without the white space at both ends.
inline std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace quillory
