#pragma once

#include <cstdint>

namespace zorby {

// How a name and its code are shown together. A number that is none of these counts as one of the
// first two, as each operation says.
enum EDISPLAYOPTIONS : std::int32_t {
    EDO_NameAndCode = 0,  // the code in parentheses behind the name
    EDO_NameOnly = 1,
    EDO_CodeAndName = 2,  // the name in parentheses behind the code
    EDO_CodeOnly = 3,
};

}  // namespace zorby
