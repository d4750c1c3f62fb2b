#pragma once

#include <quillory/faults/Fault.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Why a line can't be read.
struct LineFault {
    Fault fault;
    std::optional<std::size_t> offset = {};  // in bytes of the line, where the fault has a place
};

// Reads one line of a holdings file in JSON, and gives each value with the name of its member, an
// item of a list by itself. Result: what is wrong, if anything is.
std::optional<LineFault> ReadHoldingsObject(
    std::string_view line, const std::function<void(std::string name, std::string value)>& take);

}  // namespace quillory
