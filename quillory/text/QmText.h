#pragma once

#include <string>
#include <string_view>

namespace quillory {

// Text of the library, in its one-byte code, as UTF-8 in normal form C.
std::string QmToUtf8(std::string_view qm);

// The same for a text of several lines. The one-byte code has no sign for their ends, which stay.
std::string QmLinesToUtf8(std::string_view lines);

// The reverse of QmToUtf8. False if the code lacks one of the characters; `qm` is untouched then.
bool Utf8ToQm(std::string_view utf8, std::string& qm);

}  // namespace quillory
