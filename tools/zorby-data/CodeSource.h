#pragma once

#include <string>
#include <string_view>

namespace datatool {

// What a source of codes says of the format: the first paragraph of its head, and its rows without
// the last columns, which tell of the library's menus. Any other line, so a row of a menu alone, is
// empty. Throws quillory::FileError, which names the line, for a row without those columns.
std::string PublishedPart(std::string_view source, const std::string& name);

std::string WithoutEmptyLines(std::string_view text);

}  // namespace datatool
