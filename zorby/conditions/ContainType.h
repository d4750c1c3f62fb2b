#pragma once

#include <cstdint>

namespace zorby {

// What a test asks of a text.
enum CONTAIN_TYPE : std::int32_t {
    CT_CONTAINS = 0,
    CT_DOES_NOT_CONTAIN = 1,
    CT_EMPTY_OR_MISSING = 2,
    CT_NOT_EMPTY = 3,
};

}  // namespace zorby
