#pragma once

#include <string_view>

namespace zorby {

// All codes that a subfield may have, in the order in which they are offered to a user.
inline constexpr std::string_view kValidSubfieldCodes =
    "abcdefghijklmnopqrstuvwxyz0123456789!\"#$%&'()*+,-./:;<=>?";

inline bool IsValidSubfieldCode(char code) {
    return kValidSubfieldCodes.find(code) != std::string_view::npos;
}

}  // namespace zorby
