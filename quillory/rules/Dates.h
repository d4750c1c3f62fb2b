#pragma once

#include <string_view>

namespace quillory {

// Whether field 005 is a point in time: "yyyymmddhhmmss.f", of a day that exists.
bool IsTimeStamp(std::string_view text);

}  // namespace quillory
