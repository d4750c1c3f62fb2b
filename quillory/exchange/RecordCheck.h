#pragma once

#include <quillory/exchange/Record.h>

#include <optional>
#include <string_view>

namespace quillory {

// What a record that a form has given holds and no form can hold: ends of fields and records within
// it, delimiters without a code, bytes that no tag has. The fault has no place in the file.
std::optional<ItemFault> FaultOf(const Record& record);

// The same for a leader alone.
std::optional<Fault> FaultOfLeader(std::string_view leader);

}  // namespace quillory
