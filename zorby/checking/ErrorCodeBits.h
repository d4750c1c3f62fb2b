#pragma once

#include <zorby/Export.h>
#include <zorby/checking/ErrorCodeSet.h>
#include <zorby/checking/RecordErrorList.h>
#include <zorby/checking/ZorbyProfileBits.h>

#include <optional>

namespace zorby {

// Which findings a record has, whatever their sub types. The stored form is the 25 bytes of the
// set.
class ZORBY_EXPORT CErrorCodeBits {
public:
    explicit CErrorCodeBits(const CRecordErrorList& findings);
    // Reads 25 bytes if `size` is 200, the number of bits. With any other size, or null, there is
    // no set.
    CErrorCodeBits(const unsigned char* buffer, int size);

    // Writes 25 bytes if `size` is 25, the number of bytes; else nothing, and nothing without a
    // set.
    void ToBuffer(unsigned char* buffer, int size) const;

    // The verdict: 2 if the record has an export error, else 1 if it has a warning, else 0. Always
    // 0 without a set.
    int OKWarningError(const CZorbyProfileBits& policy) const;

private:
    std::optional<ErrorCodeSet> codes_;
};

}  // namespace zorby
