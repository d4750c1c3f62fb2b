#include <quillory/holdings/CompositeText.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

namespace quillory {

bool FitsItsElement(const zorby::CInfoAboutHoldingsField& element, std::string_view value) {
    const auto place = static_cast<unsigned char>(element.GetSubfield());
    if (place >= ' ') return true;
    const auto type =
        zorby::CInfoAboutHoldingsTypeList::GetHoldingsTypeFromHoldingsID(element.GetHoldingsID());
    const zorby::HoldingsComposite* composite = zorby::HoldingsRowOf(type).composite;
    if (composite == nullptr) return true;
    for (const char divider : {composite->partStart, composite->partEnd}) {
        if (divider != 0 && value.find(divider) != value.npos) return false;
    }
    return true;
}

}  // namespace quillory
