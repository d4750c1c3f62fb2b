#pragma once

#include <zorby/Export.h>
#include <zorby/checking/ErrorCode.h>
#include <zorby/checking/ErrorCodeSet.h>
#include <zorby/settings/ProfileKeys.h>

namespace zorby {

// Which findings are export errors under the user's settings, and which are warnings. The object
// has the settings of the moment when it was made; later changes don't reach it. Titles and main
// entries that can't be exported, and anything too long, are errors under all settings.
class ZORBY_EXPORT CZorbyProfileBits {
public:
    CZorbyProfileBits();

    const ErrorCodeSet& GetErrors() const;
    const ErrorCodeSet& GetWarnings() const;

private:
    void SetFor(ProfileKey key, E_ERROR_CODE code);
    void SetFor(ProfileKey key, int first, int last);
    void SetForError(E_ERROR_CODE code);

    ErrorCodeSet errors_;
    ErrorCodeSet warnings_;
};

}  // namespace zorby
