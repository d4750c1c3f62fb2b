#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Workforms on their way from one store to another. The file has the form of zorby.ttm: their
// number as 4 bytes, the lowest first, and then their blocks one after the other, byte for byte as
// the store has them.
struct FiledWorkform {
    std::string name;  // in the library's one-byte code
    std::string baseName;
    std::string block;
};

// A block that stands alone. Throws FileError, which begins with `what`, for one that can't be read
// whole, or has bytes after its end.
FiledWorkform ReadWorkformBlock(const std::string& block, const std::string& what);

// Throws FileError for bytes that are not such a file. It names the file, the workform, counted
// from 1, and the offset.
std::vector<FiledWorkform> ParseWorkformFile(std::string_view bytes, const std::string& fileName);
std::string WorkformFileBytes(const std::vector<FiledWorkform>& workforms);

}  // namespace quillory
