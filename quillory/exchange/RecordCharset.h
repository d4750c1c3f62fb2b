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

// The character set that a record's bytes are in. Valid UTF-8 with at least one character beyond
// ASCII is UTF-8 whatever the leader says; a record labelled UTF-8 is MARC-8 if it has such bytes
// and none of them is valid UTF-8.
Charset ActualCharset(const Record& record);

}  // namespace quillory
