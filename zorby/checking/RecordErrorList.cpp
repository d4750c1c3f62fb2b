#include <zorby/archive/Archive.h>
#include <zorby/checking/RecordErrorList.h>

#include <algorithm>
#include <limits>

namespace zorby {

const CRuntimeClass CRecordErrorList::kRuntimeClass =
    RuntimeClassOf<CRecordErrorList>("CRecordErrorList");

namespace {

constexpr std::int32_t kMostLoaded = 1'000'000;

}  // namespace

void CRecordErrorList::Add(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number,
                           char subfield) {
    entries_.push_back(std::make_unique<CRecordError>(code, subType, number, subfield));
}

CRecordError* CRecordErrorList::GetFirst() {
    iterator_ = -1;
    return GetNext();
}

CRecordError* CRecordErrorList::GetNext() {
    if (iterator_ < std::numeric_limits<std::int32_t>::max()) ++iterator_;
    return iterator_ < GetSize() ? entries_[static_cast<std::size_t>(iterator_)].get() : nullptr;
}

const CRecordError* CRecordErrorList::GetAt(int index) const {
    if (index < 0 || index >= GetSize()) return nullptr;
    return entries_[static_cast<std::size_t>(index)].get();
}

void CRecordErrorList::Serialize(CArchive& archive) {
    if (archive.IsStoring()) {
        archive << static_cast<std::int32_t>(entries_.size());
        for (const auto& entry : entries_) entry->Serialize(archive);
        return;
    }
    std::int32_t count = 0;
    archive >> count;
    for (count = std::min(count, kMostLoaded); count > 0; --count) {
        entries_.push_back(std::make_unique<CRecordError>());
        entries_.back()->Serialize(archive);
    }
}

int CRecordErrorList::GetSize() const {
    return static_cast<int>(entries_.size());
}

void CRecordErrorList::Clear() {
    entries_.clear();
}

}  // namespace zorby
