#pragma once

#include <cstdint>

namespace quillory {

// The time now, in seconds since 1970 UTC.
std::int64_t SecondsNow();

}  // namespace quillory
