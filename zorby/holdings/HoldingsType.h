#pragma once

#include <cstdint>

namespace zorby {

// The library automation systems whose holdings are known here. HoldingsTypeTable has a row for
// each. A system needs a name here only if code has to name it.
enum EHOLDINGSTYPE : std::int32_t {
    HT_NONE = 0,  // no such type
    HT_TYPE_1 = 1,
    HT_TYPE_2 = 2,
    HT_FOLLETT = 3,
    HT_TYPE_4 = 4,
    HT_TYPE_5 = 5,
    HT_TYPE_6 = 6,
    HT_DYNIX = 7,
    HT_LWLP = 8,
    HT_LWLP_2 = 9,
    HT_FOLLETT_UNISON = 10,
    HT_TYPE_11 = 11,
    HT_TYPE_12 = 12,
    HT_FOLLETT_2 = 13,
    HT_ALEXANDRIA = 14,
    HT_TYPE_15 = 15,
    HT_MANDARIN_EZ = 16,
    HT_CUSTOM = 99,  // the user's own fields; in no dictionary
};

}  // namespace zorby
