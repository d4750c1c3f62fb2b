#pragma once

#include <string_view>

namespace quillory {

// Whether field 005 is a point in time: "yyyymmddhhmmss.f", of a day that exists.
bool IsTimeStamp(std::string_view text);

// Whether the first six positions of field 008 are a day that exists, "yymmdd".
bool IsDayOfEntry(std::string_view text);

}  // namespace quillory
