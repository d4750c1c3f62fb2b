#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillory {

// Values within values, or parts of a key, at most. Libraries that read JSON and TOML call
// themselves for each.
inline constexpr std::size_t kDeepestNesting = 64;

// Where a text is nested deeper than that; nothing if it is not. Any text may be given, sound or
// not.
std::optional<std::size_t> TooDeepInJson(std::string_view json);
std::optional<std::size_t> TooDeepInToml(std::string_view toml);

}  // namespace quillory
