#include <zorby/checking/ZorbyProfileBits.h>
#include <zorby/checking/detail/PolicyTable.h>
#include <zorby/settings/Profile.h>

namespace zorby {

CZorbyProfileBits::CZorbyProfileBits() {
    for (const auto& row : kPolicyKeys) SetFor(row.key, row.code);
    for (const auto& row : kImportFindings) {
        SetFor(ZP_RecordViewerShowImportRepairLog, row.first, row.last);
    }
    for (const E_ERROR_CODE code : kAlwaysErrors) SetForError(code);
}

void CZorbyProfileBits::SetFor(ProfileKey key, E_ERROR_CODE code) {
    SetFor(key, code, code);
}

void CZorbyProfileBits::SetFor(ProfileKey key, int first, int last) {
    constexpr int kError = 0;
    constexpr int kWarning = 1;
    const int value = GetZorbyProfileInt(key);
    for (int code = first; code <= last; ++code) {
        if (value == kError) errors_.Set(code);
        if (value == kWarning) warnings_.Set(code);
    }
}

void CZorbyProfileBits::SetForError(E_ERROR_CODE code) {
    errors_.Set(code);
}

const ErrorCodeSet& CZorbyProfileBits::GetErrors() const {
    return errors_;
}

const ErrorCodeSet& CZorbyProfileBits::GetWarnings() const {
    return warnings_;
}

}  // namespace zorby
