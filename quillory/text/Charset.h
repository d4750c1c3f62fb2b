#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillory {

// The character sets of records. Auto: as the record says, or as it is.
enum Charset : std::int32_t { kCharsetAuto, kCharsetMarc8, kCharsetUtf8, kCharsetLatin1 };

std::string_view CharsetName(Charset charset);

// What leader byte 09 says: UTF-8 for 'a', else MARC-8.
Charset LabelledCharset(std::string_view leader);

// What leader byte 09 is for a character set.
char LabelFor(Charset charset);

// Bytes before the first that is no part of a UTF-8 character; npos if there is none.
std::size_t FindInvalidUtf8(std::string_view text);
bool IsValidUtf8(std::string_view text);

// What of a text is UTF-8.
struct Utf8Counts {
    std::size_t valid = 0;    // characters beyond ASCII
    std::size_t invalid = 0;  // bytes
};
// Adds what a text holds.
void CountUtf8(std::string_view text, Utf8Counts& counts);

}  // namespace quillory
