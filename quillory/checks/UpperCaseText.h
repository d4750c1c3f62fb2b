#pragma once

#include <quillory/exchange/Charset.h>

#include <string_view>

namespace quillory {

// Whether a text has two letters or more, all of them capitals, by the case of the library's
// one-byte code. A text that this code doesn't hold, such as one in another script, is none.
bool IsUpperCaseText(std::string_view text, Charset charset);

}  // namespace quillory
