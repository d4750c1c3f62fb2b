#pragma once

#include <stdexcept>

namespace quillory {

// A file that can't be opened, read or written. The text names the file and the reason.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A request that can't be carried out as it stands, whatever the files hold. The text says why, and
// what to do instead where that is known.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace quillory
