#pragma once

#include <string>
#include <string_view>

namespace quillory {

// A file's path as a reference (RFC 3986): "file:///data/my%20books.mrc", or "books.mrc" for a path
// that is relative.
std::string FileUri(std::string_view path);

}  // namespace quillory
