#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zorby {

// Gives the whole of a regular file. Returns false, with the reason in errno, if it can't be read.
bool ReadFile(const std::string& path, std::string& text);

// Replaces a file by what `change` makes of its present text (empty if there is no file), unless
// the text stays the same. Whenever the process or the machine stops, readers see the old file or
// the new one, never a part. A symbolic link is followed, and the mode is kept. Nobody else who
// calls this can write between the reading and the replacing. Returns false, with the reason in
// errno, if the file can't be replaced. The file is then as it was, unless only the last step
// failed, the syncing of the folder.
bool RewriteFile(const std::string& path,
                 const std::function<std::string(std::string_view)>& change);

}  // namespace zorby
