#pragma once

#include <quillory/exchange/Input.h>

#include <string>

struct sqlite3;

namespace quillory {

// Another process is writing, and did not come to an end in time.
class StoreBusy : public FileError {
public:
    using FileError::FileError;
};

// Throws FileError, or StoreBusy, for the last thing that failed on a connection: the file, the
// reason and, where the operating system had one, its own.
[[noreturn]] void ThrowSqliteFailure(sqlite3* connection, const std::string& name);

}  // namespace quillory
