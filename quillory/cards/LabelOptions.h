#pragma once

#include <quillory/cards/LabelStock.h>
#include <quillory/queries/PlaceSet.h>
#include <zorby/platform/Font.h>

#include <string>

namespace quillory {

// Lengths are in inches, as the profile has them.
struct LabelOptions {
    const LabelStock* stock = nullptr;
    double verticalOffset = 0;
    double horizontalOffset = 0;
    int sets = 0;  // labels of each call number; 0 for one of each copy
    PlaceSet additionalSubfields = {};
    bool isTurned = false;  // the call number runs along the spine
    zorby::CFont font;
};

// The options of the profile in force. Throws UsageError, with the name of the key, for a value
// that means nothing.
LabelOptions LabelOptionsOfProfile();

// Throws UsageError, which lists them, if there is no such stock.
const LabelStock& StockNamed(const std::string& where, const std::string& name);

}  // namespace quillory
