#pragma once

#include <string>

namespace quillory {

inline constexpr const char* kUnknownHolder = "another program";

// What others are shown of this program when it has locked something: "jo on desk-3, program 4711,
// since 10:41".
std::string HolderText();

}  // namespace quillory
