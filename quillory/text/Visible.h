#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The text as a screen can show it: bytes that are no UTF-8 and control characters as "<1B>", and
// characters that turn or break a line, such as U+202E, as "<U+202E>".
std::string Visible(std::string_view text);

// The same for a text of several lines, whose ends and tabs stay.
std::string VisibleLines(std::string_view text);

}  // namespace quillory
