#include <quillory/holdings/NextBarCode.h>
#include <quillory/places/Tag.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <string>

namespace quillory {

using zorby::CHoldingsSelector;

bool IsPlaceOfBarCode(const Place& place) {
    if (place.code == '\0') return false;
    std::string fields;
    std::string callNumber;
    std::string barCode;
    CHoldingsSelector::GetCurrentHoldingsFields(fields, callNumber, barCode);
    return barCode.starts_with(place.Tag()) && barCode.find(place.code, kTagSize) != barCode.npos;
}

bool HasNextBarCode() {
    return !CHoldingsSelector::GetNextBarCode().empty();
}

}  // namespace quillory
