#pragma once

#include <quillory/exchange/Record.h>

#include <cstddef>
#include <cstdint>
#include <optional>
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

// A byte of a field that is no part of a UTF-8 character.
struct InvalidByte {
    std::string_view tag;
    const char* at;  // in the content of the field
};

// The first one of a record, if there is any.
std::optional<InvalidByte> FirstInvalidByte(const Record& record);

// The character set that a record's bytes are in. Valid UTF-8 with at least one character beyond
// ASCII is UTF-8 whatever the leader says; a record labelled UTF-8 is MARC-8 if it has such bytes
// and none of them is valid UTF-8.
Charset ActualCharset(const Record& record);

}  // namespace quillory
