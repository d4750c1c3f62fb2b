#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillory {

// The character sets of records. Auto stands for the one that a record is in. From kCharsetOther on
// they are sets that the C library converts, by the number that CharsetNamed gave them.
enum Charset : std::int32_t {
    kCharsetAuto,
    kCharsetMarc8,
    kCharsetUtf8,
    kCharsetLatin1,
    kCharsetOther
};

std::string_view CharsetName(Charset charset);

// The set that goes by a name, whatever its case and with hyphens or without: "marc8", "UTF-8",
// "latin1", "auto", or one that the C library converts and in which ASCII is as it is, such as
// "cp1252". Nothing if there is none.
std::optional<Charset> CharsetNamed(std::string_view name);

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
