#pragma once

#include <quillory/coded/Decoder.h>
#include <quillory/exchange/Record.h>

#include <functional>
#include <string>
#include <vector>

namespace quillory {

struct ScreenOptions {
    std::size_t width = 0;  // columns, 0 for no limit
    bool colour = false;
    // Names of fields, and of subfields in them, to be shown with the record; none if not set.
    std::function<std::string(std::string_view tag)> fieldName = {};
    std::function<std::string(std::string_view tag, char code)> subfieldName = {};
};

// The Leader and the coded control fields of a record in its own character set, in their order.
std::vector<DecodedField> DecodeRecord(const Record& record, const Decoder& decoder);

// Appends a record as a person reads it: a line for each field, or with names for each subfield,
// blank indicators as "#", "$" before each code. The text is UTF-8; bytes that are no characters,
// and control characters, are shown as "<1B>". What was decoded, if anything, stands below its
// fields.
void AppendScreen(const Record& record, const std::vector<DecodedField>& decoded,
                  const ScreenOptions& options, std::string& text);

// The same for parts of a record.
void AppendLeader(std::string_view leader, const ScreenOptions& options, std::string& text);
void AppendField(const zorby::CommFormatField& field, const ScreenOptions& options,
                 std::string& text);

}  // namespace quillory
