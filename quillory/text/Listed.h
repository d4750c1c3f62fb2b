#pragma once

#include <string>

namespace quillory {

// The names with commas between them.
template <typename Names>
std::string Listed(const Names& names) {
    std::string text;
    for (const auto& name : names) text.append(text.empty() ? "" : ", ").append(name);
    return text;
}

}  // namespace quillory
