#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/holdings/detail/TypeNameList.h>

namespace zorby {

void FillTypeNames(ListPort& list) {
    while (list.GetCount() > 0) list.Remove(list.GetCount() - 1);
    const CInfoAboutHoldingsTypeList* types = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    for (int i = 0; types && i < types->GetSize(); ++i) {
        list.Insert(i, types->GetAt(i)->GetName(), 0);
    }
}

void SelectTypeName(ListPort& list, std::string_view name) {
    int index = list.GetCount() - 1;
    while (index >= 0 && list.GetTextAt(index) != name) --index;
    list.Select(index);
}

std::string SelectedTypeName(const ListPort& list) {
    const int selected = list.GetSelected();
    return selected < 0 ? std::string() : list.GetTextAt(selected);
}

}  // namespace zorby
