#pragma once

#include <quillory/exchange/Record.h>

#include <optional>
#include <string_view>

namespace quillory {

// Why a text is not JSON, of what the parser's exception says and the bytes that it had read. The
// words hold none of these bytes. Offsets count from the start of the text.
ItemFault MalformedJson(std::string_view exception, std::size_t bytesRead);

// The first NUL byte, which the parser takes for the end of the text.
std::optional<ItemFault> NulByteOf(std::string_view text);

}  // namespace quillory
