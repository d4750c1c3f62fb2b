#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quillory {

// With small letters for capitals; bytes beyond ASCII stay.
inline std::string AsciiLower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

// Whether a value consists of marks that people put where they have nothing to say.
inline bool SaysNothing(std::string_view value) {
    using namespace std::string_view_literals;
    constexpr std::string_view kMarks = " -?|#^_.*\0"sv;
    return value.find_first_not_of(kMarks) == value.npos;
}

}  // namespace quillory
