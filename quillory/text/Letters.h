#pragma once

#include <cstddef>
#include <string_view>

namespace quillory {

// The bytes of the letter at the front of a text in UTF-8, with the combining characters after it.
std::size_t LetterSize(std::string_view utf8);

}  // namespace quillory
