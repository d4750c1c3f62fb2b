#pragma once

#include <quillory/jobs/Reporter.h>
#include <quillory/store/Database.h>
#include <quillory/store/RecordLocks.h>

#include <cstdint>

namespace quillory {

// The records of the store that somebody is changing in a window. A job leaves them as they are,
// and says so.
class HeldRecords {
public:
    // Keeps the references. Throws FileError, as do all functions.
    HeldRecords(const Database& database, const Reporter& reporter)
        : locks_(database.Path()), reporter_(reporter) {}

    // Whether this record is one of them, which is reported then.
    bool Has(std::int64_t id);
    // Whether one of those that were asked for is.
    bool HadAny() const { return hadAny_; }

private:
    RecordLocks locks_;
    const Reporter& reporter_;
    bool hadAny_ = false;
};

}  // namespace quillory
