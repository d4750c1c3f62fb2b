#pragma once

#include <quillory/exchange/Input.h>

#include <string_view>

namespace quillory {

// Takes one line off the front of `text`, with a line end of CR LF, LF or CR, which is not part of
// the result.
std::string_view TakeLine(std::string_view& text);

// The bytes of the next record of a text form, without moving the input on.
class LineBlock {
public:
    virtual ~LineBlock() = default;

    // Bytes from the start of `window` that belong to one record; npos if its end is not in sight.
    virtual std::size_t EndOfRecord(std::string_view window) const = 0;

    // The record at the front of the input. At the end of the file, or after 4 MiB without an end
    // in sight, all that is there.
    std::string_view Find(Input& input) const;
};

}  // namespace quillory
