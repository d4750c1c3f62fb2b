#pragma once

#include <zorby/holdings/HoldingsType.h>

#include <cstdint>

namespace zorby {

// The numbers from first to last, both included, are elements of the type and of the other one of
// its pair.
struct HoldingsIDFamily {
    std::int32_t first;
    std::int32_t last;
    EHOLDINGSTYPE type;
};

inline constexpr HoldingsIDFamily kHoldingsIDFamilies[] = {
    {100, 103, HT_TYPE_1},         {150, 156, HT_TYPE_2},         {200, 216, HT_FOLLETT},
    {250, 262, HT_FOLLETT_UNISON}, {264, 264, HT_FOLLETT_UNISON}, {300, 313, HT_TYPE_4},
    {400, 408, HT_TYPE_5},         {500, 511, HT_DYNIX},          {600, 620, HT_LWLP},
    {700, 705, HT_TYPE_6},         {800, 808, HT_TYPE_11},        {900, 909, HT_TYPE_12},
    {950, 964, HT_ALEXANDRIA},
};

}  // namespace zorby
