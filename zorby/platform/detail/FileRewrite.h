#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zorby {

// Gives the whole of a regular file. False, with the reason in errno, if it can't be read.
bool ReadFile(const std::string& path, std::string& text);

// Replaces a file by what `change` makes of its present text (empty if there is no file), unless
// that is the same. Readers see the old file or the new one and never a part, whenever the process
// or the machine stops. A symbolic link is followed, the mode is kept, and nobody else who comes
// here can write between the reading and the replacing. False, with the reason in errno, if it
// can't be done: the file is as it was, unless only the last step failed, the folder's syncing.
bool RewriteFile(const std::string& path,
                 const std::function<std::string(std::string_view)>& change);

}  // namespace zorby
