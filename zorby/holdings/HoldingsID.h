#pragma once

#include <cstdint>

namespace zorby {

// The elements of holdings data. Each system has its range of numbers (HoldingsTypeTable). The
// elements named here have a special role; the dictionary describes all others. If a call number
// has several parts, HID_..._CALL_NUMBER takes one that isn't divided.
enum EHOLDINGSID : std::int32_t {
    HID_TYPE_1_CALL_NUMBER = 101,
    HID_TYPE_1_BAR_CODE = 102,

    HID_TYPE_2_CALL_NUMBER_PART_1 = 151,
    HID_TYPE_2_CALL_NUMBER = 152,
    HID_TYPE_2_CALL_NUMBER_PART_3 = 153,
    HID_TYPE_2_CALL_NUMBER_PART_4 = 154,
    HID_TYPE_2_BAR_CODE = 155,

    HID_FOLLETT_BAR_CODE = 200,
    HID_FOLLETT_CALL_NUMBER = 201,
    HID_FOLLETT_ITEM_A_1 = 202,  // two repeating items, each with three occurrences
    HID_FOLLETT_ITEM_B_1 = 203,
    HID_FOLLETT_ITEM_A_2 = 204,
    HID_FOLLETT_ITEM_B_2 = 205,
    HID_FOLLETT_ITEM_A_3 = 206,
    HID_FOLLETT_ITEM_B_3 = 207,
    HID_FOLLETT_FUND = 213,

    HID_FOLLETT_UNISON_BAR_CODE = 251,
    HID_FOLLETT_UNISON_CALL_NUMBER = 252,
    HID_FOLLETT_UNISON_FUND = 258,

    HID_TYPE_4_CALL_NUMBER_PART_1 = 301,
    HID_TYPE_4_CALL_NUMBER = 302,
    HID_TYPE_4_CALL_NUMBER_PART_3 = 303,
    HID_TYPE_4_CALL_NUMBER_PART_4 = 304,
    HID_TYPE_4_BAR_CODE = 305,

    HID_TYPE_5_CALL_NUMBER = 400,
    HID_TYPE_5_BAR_CODE = 401,
    HID_TYPE_5_ITEM_1 = 407,  // two occurrences of a repeating item
    HID_TYPE_5_ITEM_2 = 408,

    HID_DYNIX_BAR_CODE = 500,
    HID_DYNIX_CALL_NUMBER = 502,

    HID_LWLP_AUTOMATIC = 600,  // filled automatically; doesn't count as data
    HID_LWLP_CALL_NUMBER = 603,
    HID_LWLP_CALL_NUMBER_PART_2 = 604,
    HID_LWLP_BAR_CODE = 607,

    HID_TYPE_6_BAR_CODE = 700,
    HID_TYPE_6_CALL_NUMBER = 702,
    HID_TYPE_6_CALL_NUMBER_PART_2 = 703,

    HID_TYPE_11_CALL_NUMBER = 802,
    HID_TYPE_11_BAR_CODE = 803,

    HID_TYPE_12_CALL_NUMBER = 900,
    HID_TYPE_12_BAR_CODE = 901,
    HID_TYPE_12_ITEM_1 = 906,  // two occurrences of a repeating item
    HID_TYPE_12_ITEM_2 = 907,

    HID_ALEXANDRIA_CALL_NUMBER = 952,
    HID_ALEXANDRIA_BAR_CODE = 953,
};

}  // namespace zorby
