#pragma once

#include <cstdint>

namespace zorby {

// The kinds of control that edit elements of the control fields.
enum CFControlType : std::int32_t {
    CFControlEndOfTable = -1,
    CFControlCombo = 1,        // one code of a menu
    CFControlFormOfItem = 2,   // the combined form of item
    CFControlDateGroup = 4,    // type of date with both dates
    CFControlSRTypeGroup = 5,  // type of sound recording, with its literary text
    CFControlSRTypeList = 6,   // the same for an additional material
    CFControlRunningTime = 9,  // minutes
    CFControlReductionRatio = 10,
    CFControlInspectionDate = 11,  // year and month
    CFControlBitDepth = 12,
    CFControlCheckList = 13,  // several codes of a menu
};

}  // namespace zorby
