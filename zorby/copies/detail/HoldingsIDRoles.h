#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>

namespace zorby {

// Whether the element is the bar code of any system.
inline bool IsBarCode(EHOLDINGSID id) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    return row && row->barCode == id;
}

// Whether any system fills the element by itself.
inline bool IsAutomatic(EHOLDINGSID id) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    return row && row->automatic == id;
}

}  // namespace zorby
