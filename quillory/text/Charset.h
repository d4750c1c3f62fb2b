#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillory {

// The character sets of records. Auto stands for the one that a record is in.
enum Charset : std::int32_t { kCharsetAuto, kCharsetMarc8, kCharsetUtf8, kCharsetLatin1 };

std::string_view CharsetName(Charset charset);

// The character set that leader byte 09 names: UTF-8 for 'a', else MARC-8.
Charset LabelledCharset(std::string_view leader);

// Leader byte 09 for a character set.
char LabelFor(Charset charset);

// Where the first byte is that belongs to no UTF-8 character; npos if there is none.
std::size_t FindInvalidUtf8(std::string_view text);
bool IsValidUtf8(std::string_view text);

struct Utf8Counts {
    std::size_t valid = 0;    // characters beyond ASCII
    std::size_t invalid = 0;  // bytes that belong to no character
};
// Adds what a text holds.
void CountUtf8(std::string_view text, Utf8Counts& counts);

}  // namespace quillory
