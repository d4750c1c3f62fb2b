#pragma once

#include <zorby/holdings/HoldingsID.h>
#include <zorby/holdings/HoldingsType.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
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

// The numbers that make up a system's call number, from first to last, 0 where there are fewer.
struct CallNumberIDs {
    EHOLDINGSTYPE type;
    std::array<EHOLDINGSID, 4> ids;
};

inline constexpr CallNumberIDs kCallNumberIDs[] = {
    {HT_TYPE_1, {HID_TYPE_1_CALL_NUMBER}},
    {HT_TYPE_2,
     {HID_TYPE_2_CALL_NUMBER_PART_1, HID_TYPE_2_CALL_NUMBER, HID_TYPE_2_CALL_NUMBER_PART_3,
      HID_TYPE_2_CALL_NUMBER_PART_4}},
    {HT_FOLLETT, {HID_FOLLETT_CALL_NUMBER}},
    {HT_TYPE_4,
     {HID_TYPE_4_CALL_NUMBER_PART_1, HID_TYPE_4_CALL_NUMBER, HID_TYPE_4_CALL_NUMBER_PART_3,
      HID_TYPE_4_CALL_NUMBER_PART_4}},
    {HT_TYPE_5, {HID_TYPE_5_CALL_NUMBER}},
    {HT_TYPE_6, {HID_TYPE_6_CALL_NUMBER, HID_TYPE_6_CALL_NUMBER_PART_2}},
    {HT_DYNIX, {HID_DYNIX_CALL_NUMBER}},
    {HT_LWLP, {HID_LWLP_CALL_NUMBER, HID_LWLP_CALL_NUMBER_PART_2}},
    {HT_LWLP_2, {HID_LWLP_CALL_NUMBER, HID_LWLP_CALL_NUMBER_PART_2}},
    {HT_FOLLETT_UNISON, {HID_FOLLETT_UNISON_CALL_NUMBER}},
    {HT_TYPE_11, {HID_TYPE_11_CALL_NUMBER}},
    {HT_TYPE_12, {HID_TYPE_12_CALL_NUMBER}},
    {HT_FOLLETT_2, {HID_FOLLETT_CALL_NUMBER}},
    {HT_ALEXANDRIA, {HID_ALEXANDRIA_CALL_NUMBER}},
    {HT_TYPE_15, {HID_TYPE_12_CALL_NUMBER}},
};

// The numbers of a type that the table has, with the zeros behind them; none for others.
inline std::span<const EHOLDINGSID> CallNumberIDsOf(EHOLDINGSTYPE type) {
    const auto found = std::ranges::find(kCallNumberIDs, type, &CallNumberIDs::type);
    return found == std::end(kCallNumberIDs) ? std::span<const EHOLDINGSID>() : found->ids;
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
