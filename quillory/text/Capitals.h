#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillory {

// The letters of a text, by the case of the library's one-byte code.
struct Capitals {
    std::size_t words = 0;    // with a capital
    std::size_t letters = 0;  // that are capitals
    bool hasSmall = false;
};

Capitals CapitalsOfQm(std::string_view qm);

// Nothing if the code can't hold the text, such as one in another script.
std::optional<Capitals> CapitalsOfUtf8(std::string_view utf8);

// Whether letters are in capitals: two or more, and no small one.
bool AreInCapitals(const Capitals& capitals);

}  // namespace quillory
