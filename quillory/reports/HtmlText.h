#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// Text of a record as HTML: what would be markup is escaped, and bytes that are no UTF-8, and
// control characters, are shown as "<1B>".
std::string HtmlText(std::string_view text);

// A number and what it counts, as an item of a page's list of totals. `kind` is the class of its
// style.
std::string Tile(std::string_view kind, std::uint64_t count, std::string_view text);

}  // namespace quillory
