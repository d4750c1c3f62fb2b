#pragma once

#include <algorithm>
#include <string_view>

namespace zorby {

// What the C locale calls white space.
inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

inline std::string_view TrimmedRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

inline std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    return TrimmedRight(text);
}

}  // namespace zorby
