#include <zorby/archive/SerializeList.h>
#include <zorby/archive/detail/DataFile.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <algorithm>
#include <utility>

namespace zorby {
namespace {

std::unique_ptr<CInfoAboutHoldingsTypeList> theOneAndOnly;

CInfoAboutHoldingsTypeList& InForce() {
    static CInfoAboutHoldingsTypeList empty;
    return theOneAndOnly ? *theOneAndOnly : empty;
}

template <class Types, class Test>
const CInfoAboutHoldingsType* FindType(const Types& types, Test test) {
    const auto found = std::ranges::find_if(types, [&](const auto& type) { return test(*type); });
    return found == types.end() ? nullptr : found->get();
}

}  // namespace

const CRuntimeClass CInfoAboutHoldingsTypeList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutHoldingsTypeList>("CInfoAboutHoldingsTypeList");

void CInfoAboutHoldingsTypeList::Serialize(CArchive& archive) {
    SerializeList(archive, types_);
}

int CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(std::string_view directory) {
    DestroyYourself();
    auto loaded = std::make_unique<CInfoAboutHoldingsTypeList>();
    if (!LoadDataFile(std::string(directory) + "zorby.hld", *loaded)) return 0;
    theOneAndOnly = std::move(loaded);
    return 1;
}

void CInfoAboutHoldingsTypeList::DestroyYourself() {
    theOneAndOnly.reset();
}

const CInfoAboutHoldingsTypeList* CInfoAboutHoldingsTypeList::TheOneAndOnly() {
    return theOneAndOnly.get();
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::GetFirst() {
    InForce().next_ = 0;
    return GetNext();
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::GetNext() {
    CInfoAboutHoldingsTypeList& list = InForce();
    return list.next_ < list.types_.size() ? list.types_[list.next_++].get() : nullptr;
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::FindFromName(std::string_view name) {
    return FindType(InForce().types_, [&](const CInfoAboutHoldingsType& type) {
        return std::ranges::find(type.GetNames(), name) != type.GetNames().end();
    });
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::FindFromType(EHOLDINGSTYPE wanted) {
    return FindType(InForce().types_,
                    [&](const auto& type) { return type.GetHoldingsTypeID() == wanted; });
}

const CInfoAboutHoldingsField* CInfoAboutHoldingsTypeList::FindFromID(EHOLDINGSID id) {
    const CInfoAboutHoldingsType* type = FirstWith(id);
    return type ? type->GetFieldInfo(id) : nullptr;
}

EHOLDINGSTYPE CInfoAboutHoldingsTypeList::GetHoldingsTypeFromHoldingsID(EHOLDINGSID id) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    return row ? row->type : HT_NONE;
}

void CInfoAboutHoldingsTypeList::GetMenuItemsFromID(EHOLDINGSID id, std::vector<std::string>& names,
                                                    std::vector<EHOLDINGSID>& ids) {
    const CInfoAboutHoldingsType* type = FirstWith(id);
    for (int i = 0; type && i < type->GetSize(); ++i) {
        names.push_back(type->GetAt(i)->GetName());
        ids.push_back(type->GetAt(i)->GetHoldingsID());
    }
}

void CInfoAboutHoldingsTypeList::AddType(std::unique_ptr<CInfoAboutHoldingsType> type) {
    if (type) types_.push_back(std::move(type));
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::GetAt(int index) const {
    return 0 <= index && index < GetSize() ? types_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

const CInfoAboutHoldingsType* CInfoAboutHoldingsTypeList::FirstWith(EHOLDINGSID id) {
    return FindType(InForce().types_,
                    [&](const auto& type) { return type.GetFieldInfo(id) != nullptr; });
}

int CInfoAboutHoldingsTypeList::GetSize() const {
    return static_cast<int>(types_.size());
}

}  // namespace zorby
