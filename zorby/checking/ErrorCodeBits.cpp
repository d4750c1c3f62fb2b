#include <zorby/checking/ErrorCodeBits.h>

#include <algorithm>

namespace zorby {

CErrorCodeBits::CErrorCodeBits(const CRecordErrorList& findings) : codes_(ErrorCodeSet()) {
    for (int i = 0; i < findings.GetSize(); ++i) codes_->Set(findings.GetAt(i)->GetCode());
}

CErrorCodeBits::CErrorCodeBits(const unsigned char* buffer, int size) {
    if (buffer == nullptr || size != ErrorCodeSet::kBits) return;
    codes_.emplace();
    std::copy_n(buffer, ErrorCodeSet::kBytes, codes_->Data());
}

void CErrorCodeBits::ToBuffer(unsigned char* buffer, int size) const {
    if (codes_ && buffer != nullptr && size == static_cast<int>(ErrorCodeSet::kBytes)) {
        std::copy_n(codes_->Data(), ErrorCodeSet::kBytes, buffer);
    }
}

int CErrorCodeBits::OKWarningError(const CZorbyProfileBits& policy) const {
    if (!codes_) return 0;
    if (codes_->Intersects(policy.GetErrors())) return 2;
    return codes_->Intersects(policy.GetWarnings()) ? 1 : 0;
}

}  // namespace zorby
