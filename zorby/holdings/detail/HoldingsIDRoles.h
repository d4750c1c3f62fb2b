#pragma once

#include <zorby/holdings/HoldingsID.h>

#include <algorithm>
#include <array>
#include <utility>

namespace zorby {

inline constexpr EHOLDINGSID kBarCodeIDs[] = {
    HID_TYPE_1_BAR_CODE, HID_TYPE_2_BAR_CODE,  HID_FOLLETT_BAR_CODE, HID_FOLLETT_UNISON_BAR_CODE,
    HID_TYPE_4_BAR_CODE, HID_TYPE_5_BAR_CODE,  HID_DYNIX_BAR_CODE,   HID_LWLP_BAR_CODE,
    HID_TYPE_6_BAR_CODE, HID_TYPE_11_BAR_CODE, HID_TYPE_12_BAR_CODE, HID_ALEXANDRIA_BAR_CODE,
};

inline bool IsBarCode(EHOLDINGSID id) {
    return std::ranges::find(kBarCodeIDs, id) != std::end(kBarCodeIDs);
}

// The numbers of an item that may occur three times.
inline constexpr std::array<EHOLDINGSID, 3> kRepeatedChains[] = {
    {HID_FOLLETT_ITEM_A_1, HID_FOLLETT_ITEM_A_2, HID_FOLLETT_ITEM_A_3},
    {HID_FOLLETT_ITEM_B_1, HID_FOLLETT_ITEM_B_2, HID_FOLLETT_ITEM_B_3},
};

// The numbers of the first occurrence of an item, and of those behind it.
inline constexpr std::pair<EHOLDINGSID, EHOLDINGSID> kRepeatedPairs[] = {
    {HID_TYPE_5_ITEM_1, HID_TYPE_5_ITEM_2},
    {HID_TYPE_12_ITEM_1, HID_TYPE_12_ITEM_2},
};

}  // namespace zorby
