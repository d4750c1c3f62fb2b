#pragma once

#include <zorby/Export.h>
#include <zorby/checking/ErrorCode.h>
#include <zorby/checking/ErrorCodeSet.h>
#include <zorby/settings/ProfileKeys.h>

namespace zorby {

// Which findings the user's settings make export errors and which warnings, as they stand when the
// object is made: later changes of the settings don't reach it. Titles and main entries that can't
// be exported, and what is too long, are errors under any settings.
class ZORBY_EXPORT CZorbyProfileBits {
public:
    CZorbyProfileBits();

    const ErrorCodeSet& GetErrors() const { return errors_; }
    const ErrorCodeSet& GetWarnings() const { return warnings_; }

private:
    void SetFor(ProfileKey key, E_ERROR_CODE code);
    void SetFor(ProfileKey key, int first, int last);
    void SetForError(E_ERROR_CODE code);

    ErrorCodeSet errors_;
    ErrorCodeSet warnings_;
};

}  // namespace zorby
