#pragma once

#include <quillory/exchange/Record.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillory {

// Why a text can't be read.
struct JsonFault {
    Fault fault;
    std::optional<std::size_t> offset = {};  // in bytes, where the fault has a place
};

// Why a text is not JSON: the words of the parser's exception, without bytes of the text, and the
// last of the bytes read. Offsets count from the start of the text.
ItemFault MalformedJson(std::string_view exception, std::size_t bytesRead);

// The first NUL byte, at which the parser silently ends.
std::optional<ItemFault> NulByteOf(std::string_view text);

}  // namespace quillory
