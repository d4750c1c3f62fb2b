#pragma once

#include <string>
#include <string_view>

namespace quillory {

// A text after an edit in a form that knows only one spelling of each letter: the letters at its
// beginning and its end that are those of the text before it are spelled as they were, whether
// precomposed or not. The others are precomposed, unless what was given never is. UTF-8.
std::string WithLettersKept(std::string_view given, std::string_view edited);

}  // namespace quillory
