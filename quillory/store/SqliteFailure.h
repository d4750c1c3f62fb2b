#pragma once

#include <quillory/faults/Errors.h>

#include <string>

struct sqlite3;

namespace quillory {

// Another process is writing, and did not finish in time.
class StoreBusy : public FileError {
public:
    using FileError::FileError;
};

// Throws FileError, or StoreBusy, for the last failure on a connection. The text has the file, the
// reason and, where there is one, the reason of the operating system.
[[noreturn]] void ThrowSqliteFailure(sqlite3* connection, const std::string& name);

}  // namespace quillory
