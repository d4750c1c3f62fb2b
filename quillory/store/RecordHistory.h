#pragma once

#include <quillory/store/RecordStore.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A record as it was until a change.
struct FormerRecord {
    std::int64_t edit = 0;      // changes that were made together have one number, from 1
    std::int64_t replaced = 0;  // seconds since 1970 UTC
    std::string change;         // what was done, in words
    std::string bytes;          // ISO 2709
};

// What the store's records were before changes. To be used inside of a transaction where several
// calls belong together. Everything that fails throws FileError.
class RecordHistory {
public:
    explicit RecordHistory(const Database& database);

    // The number for changes that are made together from now on.
    std::int64_t NextEdit() const;
    // Gives a record of the store other bytes and keeps those that it has. False if there is no
    // such record.
    bool Replace(std::int64_t id, const NewRecord& record, std::int64_t edit,
                 std::string_view change);

    // The latest first.
    std::vector<FormerRecord> VersionsOf(std::int64_t id) const;
    // The records that were changed together last, of those whose changes are not undone.
    std::vector<std::int64_t> RecordsOfLastEdit() const;
    // Puts back what the record was before its last change, which is forgotten then. False if it
    // has none.
    bool Undo(std::int64_t id);

private:
    const Database& database_;
    Statement keep_;
    Statement replace_;
};

}  // namespace quillory
