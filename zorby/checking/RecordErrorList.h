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

    // Walk through the list. At its end they return null, however often they are called.
    CRecordError* GetFirst();
    CRecordError* GetNext();

    // Null beyond the list, which counts from 0.
    const CRecordError* GetAt(int index) const;
    int GetSize() const;
    void Clear();

    // Only the count is stored, an int32. Loading appends that many entries without a finding, but
    // at most 1,000,000, since nothing in the stream confirms the count.
    void Serialize(CArchive& archive) override;

private:
    std::int32_t iterator_ = -1;
    std::vector<std::unique_ptr<CRecordError>> entries_;
};

}  // namespace zorby
