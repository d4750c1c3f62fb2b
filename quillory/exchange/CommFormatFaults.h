#pragma once

#include <quillory/exchange/Record.h>

#include <string_view>

namespace quillory {

// A fault of the library in the bytes of a record. Its offset counts from their start.
ItemFault FaultOf(const zorby::CommFormatFault& fault, std::string_view bytes);

}  // namespace quillory
