#pragma once

#include <quillory/exchange/Record.h>

#include <functional>
#include <string>

namespace quillory {

struct ScreenOptions {
    std::size_t width = 0;  // columns, 0 for no limit
    bool colour = false;
    // Names of fields, and of subfields in them, to be shown with the record; none if not set.
    std::function<std::string(std::string_view tag)> fieldName;
    std::function<std::string(std::string_view tag, char code)> subfieldName;
};

// Appends a record as a person reads it: a line a field, or with names a line a subfield, blank
// indicators as "#", "$" before each code. The text is UTF-8; bytes that are none, and control
// characters, are shown as "<1B>".
void AppendScreen(const Record& record, const ScreenOptions& options, std::string& text);

}  // namespace quillory
