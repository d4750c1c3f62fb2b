#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutField.h>

namespace zorby {

const CRuntimeClass CInfoAboutField::kRuntimeClass =
    RuntimeClassOf<CInfoAboutField>("CInfoAboutField");
const CRuntimeClass CInfoAboutFieldList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutFieldList>("CInfoAboutFieldList");

void CInfoAboutField::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, name_, mandatory_, repeatable_);
    if (archive.IsLoading()) userDefined_ = 0;
}

void CInfoAboutField::Create(unsigned tag, std::string_view name, int repeatable, int mandatory,
                             int userDefined) {
    tag_ = tag;
    name_ = name;
    repeatable_ = repeatable;
    mandatory_ = mandatory;
    userDefined_ = userDefined;
}

const CInfoAboutField* CInfoAboutFieldList::Find(unsigned tag) const {
    return FindFirst(tag);
}

void CInfoAboutFieldList::AddField(unsigned tag, std::string_view name, int repeatable,
                                   int mandatory, int userDefined) {
    AppendNew(tag, name, repeatable, mandatory, userDefined);
}

std::unique_ptr<CTagArray> CInfoAboutFieldList::AllTags(unsigned low, unsigned high) const {
    auto tags = std::make_unique<CTagArray>();
    for (int i = 0; i < GetSize(); ++i) {
        const unsigned tag = GetAt(i)->GetTag();
        if (low <= tag && tag <= high) tags->push_back(tag);
    }
    return tags;
}

void CInfoAboutFieldList::RemoveUserDefined() {
    RemoveIf([](const CInfoAboutField& field) { return field.IsUserDefined() != 0; });
}

unsigned CInfoAboutField::GetTag() const {
    return tag_;
}

const std::string& CInfoAboutField::GetName() const {
    return name_;
}

void CInfoAboutField::GetName(std::string& name) const {
    name = name_;
}

int CInfoAboutField::Repeatable() const {
    return repeatable_;
}

int CInfoAboutField::Mandatory() const {
    return mandatory_;
}

int CInfoAboutField::IsUserDefined() const {
    return userDefined_;
}

}  // namespace zorby
