#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>

namespace zorby {

// Returns whether the element is the bar code of any system.
inline bool IsBarCode(EHOLDINGSID id) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    return row && row->barCode == id;
}

// Returns whether any system fills the element automatically.
inline bool IsAutomatic(EHOLDINGSID id) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    return row && row->automatic == id;
}

}  // namespace zorby
