#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// Seconds since 1970 UTC as ISO 8601: "2026-11-22T01:40:02Z".
std::string TimeText(std::int64_t seconds);

}  // namespace quillory
