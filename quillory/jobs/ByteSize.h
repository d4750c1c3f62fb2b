#pragma once

#include <cstdint>
#include <string>

namespace quillory {

// Bytes as people write them: "100000", or "512K", "256M", "2G" with 1,024 of the unit below, in
// any case. Throws UsageError, with the name of the option, for what is none, for 0, and for what
// is too large.
std::uint64_t ParseByteSize(const std::string& option, const std::string& text);

}  // namespace quillory
