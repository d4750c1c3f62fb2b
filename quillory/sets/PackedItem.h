#pragma once

#include <quillory/exchange/Record.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// Records on their way through a temporary file: all that is needed to write them as if they had
// just been read, and to name them.

// Replaces `packed`. `file` is a number that whoever packs gives the record's file. What is wrong
// with an item is left out.
void PackItem(const Item& item, std::uint64_t file, std::string& packed);

// Makes `item` the one that was packed, with views of `packed`. Result: the number of its file.
std::uint64_t UnpackItem(std::string_view packed, Item& item);

}  // namespace quillory
