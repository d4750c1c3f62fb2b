#include <zorby/holdings/HoldingsGroupDialogs.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/holdings/detail/HoldingsGroups.h>
#include <zorby/text/detail/CaseFolded.h>

namespace zorby {

bool IsMandarinEZTransfer(std::string_view typeName) {
    return EqualCaseFolded(typeName, "mandarin ez transfer");
}

HoldingsGroup GroupOfType(std::string_view typeName) {
    if (IsMandarinEZTransfer(typeName)) return HoldingsGroup::kMandarin;
    const CInfoAboutHoldingsType* type = CInfoAboutHoldingsTypeList::FindFromName(typeName);
    return type ? HoldingsRowOf(type->GetHoldingsTypeID()).group : HoldingsGroup::kBasic;
}

bool RunGroupDialog(std::string_view typeName, std::string& nextBarCode, std::string& extra,
                    WindowPort* parent) {
    const auto confirms = [](ModalDialog&& dialog) { return dialog.DoModal() == kIdOk; };
    switch (GroupOfType(typeName)) {
        case HoldingsGroup::kDynix:
            return confirms(CDlgHoldingsDynix(nextBarCode, extra, parent));
        case HoldingsGroup::kLwlp:
            return confirms(CDlgHoldingsLWLP(typeName, nextBarCode, extra, parent));
        case HoldingsGroup::kFollettUnison:
            return confirms(CDlgHoldingsFollettUnison(nextBarCode, extra, parent));
        case HoldingsGroup::kMandarin:
            return confirms(CDlgHoldingsMandarin(extra, parent));
        default:
            return confirms(CDlgHoldingsBasic(typeName, nextBarCode, parent));
    }
}

}  // namespace zorby
