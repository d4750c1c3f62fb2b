#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/checking/RecordError.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace zorby {

// The findings on one record, in the order in which they were added. The list owns them.
class ZORBY_EXPORT CRecordErrorList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CRecordErrorList() = default;
    CRecordErrorList(const CRecordErrorList&) = delete;
    CRecordErrorList& operator=(const CRecordErrorList&) = delete;

    void Add(E_ERROR_CODE code, E_ERROR_CODE_SUB_TYPE subType, std::int32_t number, char subfield);

    // Walk through the list. Null past the end, however often one asks.
    CRecordError* GetFirst() const;
    CRecordError* GetNext() const;

    int GetSize() const { return static_cast<int>(entries_.size()); }
    void Clear() { entries_.clear(); }

    // The stored form is the count alone, an int32: loading appends that many entries that hold no
    // finding. It appends 1,000,000 at most, since nothing in the stream bears the count out.
    void Serialize(CArchive& archive) override;

private:
    mutable std::int32_t iterator_ = -1;
    std::vector<std::unique_ptr<CRecordError>> entries_;
};

}  // namespace zorby
