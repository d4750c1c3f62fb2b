#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A text without case and diacritics that knows where each of its bytes comes from.
struct FoldedText {
    explicit FoldedText(std::string_view utf8);

    std::string text;
    // For each byte of `text` the first byte of the letter that it is of, and then the original's
    // size.
    std::vector<std::size_t> origins;
};

}  // namespace quillory
