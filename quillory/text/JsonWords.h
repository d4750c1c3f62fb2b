#pragma once

#include <string>
#include <string_view>

namespace quillory {

// What the JSON parser's exception says, without its own numbers, and without bytes of the file.
std::string JsonWords(std::string_view what);

}  // namespace quillory
