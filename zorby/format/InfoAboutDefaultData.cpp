#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutDefaultData.h>

namespace zorby {

const CRuntimeClass CInfoAboutDefaultData::kRuntimeClass =
    RuntimeClassOf<CInfoAboutDefaultData>("CInfoAboutDefaultData");
const CRuntimeClass CInfoAboutDefaultDataList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutDefaultDataList>("CInfoAboutDefaultDataList");

void CInfoAboutDefaultData::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, first_, second_, code_, data_);
}

void CInfoAboutDefaultData::Create(unsigned tag, char first, char second, char code,
                                   std::string_view data) {
    tag_ = tag;
    first_ = first;
    second_ = second;
    code_ = code;
    data_ = data;
}

void CInfoAboutDefaultData::Create(char code, std::string_view data) {
    Create(0, '\0', '\0', code, data);
}

void CInfoAboutDefaultData::CloneFrom(const CInfoAboutDefaultData& other) {
    *this = other;
}

char CInfoAboutDefaultData::GetIndicator(int which) const {
    const char indicator = GetIndicatorRaw(which);
    return indicator == '_' ? '\0' : indicator;
}

void CInfoAboutDefaultDataList::AddDefaultData(unsigned tag, char first, char second, char code,
                                               std::string_view data) {
    AppendNew(tag, first, second, code, data);
}

void CInfoAboutDefaultDataList::AddDefaultData(char code, std::string_view data) {
    AppendNew(code, data);
}

void CInfoAboutDefaultDataList::CloneFrom(const CInfoAboutDefaultDataList& other) {
    const int size = other.GetSize();  // `other` may be this list
    for (int i = 0; i < size; ++i) {
        auto copy = std::make_unique<CInfoAboutDefaultData>();
        copy->CloneFrom(*other.GetAt(i));
        Append(std::move(copy));
    }
}

void CInfoAboutDefaultDataList::RemoveAll() {
    RemoveIf([](const CInfoAboutDefaultData&) { return true; });
}

const CInfoAboutDefaultData* CInfoAboutDefaultDataList::GetFirst() {
    next_ = 0;
    return GetNext();
}

const CInfoAboutDefaultData* CInfoAboutDefaultDataList::GetNext() {
    return At(next_++);
}

unsigned CInfoAboutDefaultData::GetTag() const {
    return tag_;
}

char CInfoAboutDefaultData::GetIndicatorRaw(int which) const {
    return which == 1 ? first_ : second_;
}

char CInfoAboutDefaultData::GetSubCode() const {
    return code_;
}

const std::string& CInfoAboutDefaultData::GetDefaultData() const {
    return data_;
}

}  // namespace zorby
