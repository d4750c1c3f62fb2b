#pragma once

#include <quillory/exchange/JsonTree.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Reads one line of a holdings file in JSON, and gives each value with the name of its member, an
// item of a list by itself. Result: what is wrong, if anything is.
std::optional<JsonFault> ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take);

}  // namespace quillory
