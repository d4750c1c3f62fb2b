#pragma once

#include <string>
#include <string_view>

namespace zorby {

// Returns the display code of each byte of a `Qm` text without zero bytes, in the display type in
// force.
std::string DisplayText(std::string_view text);

}  // namespace zorby
