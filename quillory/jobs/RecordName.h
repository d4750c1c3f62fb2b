#pragma once

#include <quillory/sets/PlaceText.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// A record as a report names it, in UTF-8.
struct RecordName {
    std::string file;
    std::uint64_t number = 0;  // in its file, from 1
    std::uint64_t offset = 0;  // in bytes
    std::string controlNumber;
    std::string title;
};

// Finds out the names of records.
class RecordNamer {
public:
    explicit RecordNamer(Charset charset) : texts_(charset) {}

    RecordName NameOf(std::string_view file, const Item& item);

private:
    PlaceTexts texts_;
};

// "record 2 (001 x)", with the file before it unless it is `file`.
std::string ShortText(const RecordName& name, std::string_view file);

}  // namespace quillory
