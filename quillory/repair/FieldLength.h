#pragma once

#include <zorby/elements/CFType.h>

#include <string>
#include <string_view>

namespace quillory {

// The bytes of a field of this form at the length that the format has. Bytes too many are cut off
// the end. Bytes too few are filled up with fill characters, not coded; the Leader and undefined
// positions, which have no such code, with blanks. `material` is that of the record.
std::string FittedToFormat(std::string_view given, zorby::CFType form, zorby::CFType material);

}  // namespace quillory
