#pragma once

#include <string_view>
#include <utility>

namespace zorby {

// Returns where the word at a character begins and ends, with the blank after it and without
// brackets around it. Both are the same if there is none.
std::pair<int, int> WordAt(std::string_view text, int position);

}  // namespace zorby
