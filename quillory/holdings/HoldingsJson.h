#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillory {

// Reads one line of a holdings file in JSON, and gives each value with the name of its member, an
// item of a list by itself. Result: why the line can't be read, or an empty text.
std::string ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take);

}  // namespace quillory
