#pragma once

#include <string_view>

namespace zorby {

// Every code that a subfield may have, in the order in which a user is offered them.
inline constexpr std::string_view kValidSubfieldCodes =
    "abcdefghijklmnopqrstuvwxyz0123456789!\"#$%&'()*+,-./:;<=>?";

}  // namespace zorby
