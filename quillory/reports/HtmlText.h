#pragma once

#include <string>
#include <string_view>

namespace quillory {

// Text of a record as HTML: what would be markup is escaped, and bytes that are no UTF-8, and
// control characters, are shown as "<1B>".
std::string HtmlText(std::string_view text);

}  // namespace quillory
