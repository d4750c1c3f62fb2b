#pragma once

#include <cstddef>
#include <string_view>

namespace zorby {

inline std::string_view TagOf(std::string_view field) {
    return field.substr(0, 3);
}

inline std::string_view ContentOf(std::string_view field) {
    return field.size() > 3 ? field.substr(3) : std::string_view{};
}

// Returns the tag as a number, from its leading digits, or -1 if there are none.
inline int TagNumber(std::string_view field) {
    int number = -1;
    for (const char c : TagOf(field)) {
        if (c < '0' || c > '9') break;
        number = (number < 0 ? 0 : number) * 10 + (c - '0');
    }
    return number;
}

}  // namespace zorby
