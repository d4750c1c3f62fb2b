#pragma once

#include <zorby/Export.h>
#include <zorby/checking/ErrorCodeSet.h>
#include <zorby/checking/RecordErrorList.h>
#include <zorby/checking/ZorbyProfileBits.h>

#include <optional>

namespace zorby {

// The set of findings that a record has, whatever their sub types. It is stored as 25 bytes.
class ZORBY_EXPORT CErrorCodeBits {
public:
    explicit CErrorCodeBits(const CRecordErrorList& findings);
    // Reads 25 bytes if `size` is 200, the number of bits. With any other size or a null pointer,
    // there is no set.
    CErrorCodeBits(const unsigned char* buffer, int size);

    // Writes 25 bytes if `size` is 25, the number of bytes, and there is a set. Otherwise it writes
    // nothing.
    void ToBuffer(unsigned char* buffer, int size) const;

    // Returns the verdict: 2 if the record has an export error, else 1 if it has a warning, else 0.
    // Without a set the result is always 0.
    int OKWarningError(const CZorbyProfileBits& policy) const;

private:
    std::optional<ErrorCodeSet> codes_;
};

}  // namespace zorby
