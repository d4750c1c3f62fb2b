#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/text/Charset.h>

#include <optional>
#include <string_view>

namespace quillory {

// A byte of a record that is no part of a UTF-8 character.
struct InvalidByte {
    Fault fault;
    const char* at;  // in the content of a field
};

// The first one of a record, if there is any.
std::optional<InvalidByte> FirstInvalidByte(const Record& record);

// What the fields of a record hold.
Utf8Counts CountUtf8(const Record& record);

// The character set that a record's bytes are in, whatever its leader says: UTF-8 if all bytes
// beyond ASCII are valid UTF-8, MARC-8 if none of them is. The leader decides where some are, or
// where there are none.
Charset ActualCharset(const Record& record);
// The same for fields that have been counted.
Charset ActualCharset(std::string_view leader, const Utf8Counts& counts);

}  // namespace quillory
