#pragma once

#include <cstdint>

namespace zorby {

// How a name and its code are shown together. Any other number counts as one of the first two; each
// operation says as which.
enum EDISPLAYOPTIONS : std::int32_t {
    EDO_NameAndCode = 0,  // the code in parentheses after the name
    EDO_NameOnly = 1,
    EDO_CodeAndName = 2,  // the name in parentheses after the code
    EDO_CodeOnly = 3,
};

}  // namespace zorby
