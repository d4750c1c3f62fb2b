#include <zorby/archive/SerializeList.h>
#include <zorby/copies/HoldingsDataRecordList.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned char kRecordListVersion = 1;

}  // namespace

const CRuntimeClass CHoldingsDataRecordList::kRuntimeClass =
    RuntimeClassOf<CHoldingsDataRecordList>("CHoldingsDataRecordList");

void CHoldingsDataRecordList::Serialize(CArchive& archive) {
    unsigned char version = kRecordListVersion;
    SerializeElement(archive, version);
    if (version != kRecordListVersion) return;
    if (archive.IsStoring()) {
        Store(archive);
    } else {
        Load(archive);
    }
}

void CHoldingsDataRecordList::Store(CArchive& archive) const {
    const auto count = std::ranges::count_if(records_, [](const auto& record) { return !!record; });
    archive << static_cast<std::int32_t>(count);
    for (const auto& record : records_) {
        if (record) record->Serialize(archive);
    }
}

void CHoldingsDataRecordList::Load(CArchive& archive) {
    std::int32_t count = 0;
    archive >> count;
    for (std::int32_t i = 0; i < count; ++i) {
        auto record = std::make_unique<CHoldingsDataRecord>();
        record->Serialize(archive);
        Add(std::move(record));
    }
}

void CHoldingsDataRecordList::CloneFrom(const CHoldingsDataRecordList& list) {
    if (&list == this) return;
    RemoveAll();
    for (int i = 0; const CHoldingsDataRecord* record = list.GetAt(i); ++i) {
        AddEmptyAtEnd(HT_NONE)->CloneFrom(*record);
    }
}

void CHoldingsDataRecordList::Add(std::unique_ptr<CHoldingsDataRecord> record) {
    if (!record) return;
    record->owner_ = this;
    records_.push_back(std::move(record));
}

CHoldingsDataRecord* CHoldingsDataRecordList::AddEmptyAtEnd(EHOLDINGSTYPE type) {
    Add(std::make_unique<CHoldingsDataRecord>(type));
    return records_.back().get();
}

void CHoldingsDataRecordList::AddDuplicateAtEnd(int index) {
    const CHoldingsDataRecord* record = GetAt(index);
    if (!record) return;
    CHoldingsDataRecord* copy = AddEmptyAtEnd(HT_NONE);
    copy->CloneFrom(*record);
    copy->EmptyBarCode();
}

int CHoldingsDataRecordList::Replace(int index, std::unique_ptr<CHoldingsDataRecord> record) {
    if (!record || index < 0 || index > kHighestIndex) return 0;
    record->owner_ = this;
    if (index >= GetSize()) records_.resize(static_cast<std::size_t>(index) + 1);
    records_[static_cast<std::size_t>(index)] = std::move(record);
    return 1;
}

CHoldingsDataRecord* CHoldingsDataRecordList::GetAt(int index) {
    return 0 <= index && index < GetSize() ? records_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

const CHoldingsDataRecord* CHoldingsDataRecordList::GetAt(int index) const {
    return const_cast<CHoldingsDataRecordList*>(this)->GetAt(index);
}

void CHoldingsDataRecordList::DeleteByNumber(int index) {
    if (0 <= index && index < GetSize()) records_.erase(records_.begin() + index);
}

void CHoldingsDataRecordList::DeleteByPtr(const CHoldingsDataRecord* record) {
    if (!record) return;
    std::erase_if(records_, [=](const auto& owned) { return owned.get() == record; });
}

void CHoldingsDataRecordList::RemoveEmptyOnes() {
    std::erase_if(records_, [](const auto& record) {
        return !record || record->IsEmpty() || record->HasNoText();
    });
}

void CHoldingsDataRecordList::RemoveAll() {
    records_.clear();
}

void CHoldingsDataRecordList::SortByTagAndSubfield() {
    for (const auto& record : records_) {
        if (record) record->SortByTagAndSubfield();
    }
}

unsigned CHoldingsDataRecordList::GetMARCSize() const {
    unsigned size = 0;
    for (const auto& record : records_) {
        if (record) size += record->GetMARCSize();
    }
    return size;
}

int CHoldingsDataRecordList::GetSize() const {
    return static_cast<int>(records_.size());
}

}  // namespace zorby
