#pragma once

#include <quillory/store/Database.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What lists and searches show of a record, in UTF-8 without control characters.
struct RecordSummary {
    std::string controlNumber;  // 001
    std::string title;          // 245 $a, $b, $n and $p
    std::string type;           // leader bytes 06-07
};

// A record on its way into the store.
struct NewRecord {
    RecordSummary summary;
    std::string bytes;  // ISO 2709
    int workform = 0;   // ID of the user's workform that it was made from; 0 for none
};

struct StoredRecord {
    std::int64_t id = 0;
    RecordSummary summary;
    std::int64_t added = 0;    // seconds since 1970 UTC
    std::int64_t changed = 0;  // as added
    int workform = 0;          // 0 for none, and for one that has been deleted
    std::string bytes;
};

// What Walk gives: the records that all of these hold for.
struct RecordSelection {
    std::int64_t after = 0;                    // the ID is above this
    std::optional<std::string> controlNumber;  // all of it; the number of blanks doesn't count
    std::optional<std::string> titlePrefix;    // case and diacritics don't count
};

struct IdRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

// Records whose control number an earlier record of the store has, too.
struct RepeatedNumbersFound {
    std::uint64_t count = 0;
    std::int64_t first = 0;  // its ID; 0 if there is none
};

// The records that quillory keeps, each by an ID from 1 on that is never given twice. Failures
// throw FileError.
class RecordStore {
public:
    explicit RecordStore(const Database& database);

    // The result is the ID.
    std::int64_t Add(const NewRecord& record);
    // Adds at least one record: all or none. Their IDs follow each other.
    IdRange AddAll(std::span<const NewRecord> records);
    // Among the records of these IDs.
    RepeatedNumbersFound FindRepeatedNumbers(IdRange ids) const;
    // False if there is no such record.
    bool Delete(std::int64_t id);

    std::optional<StoredRecord> Find(std::int64_t id) const;
    // Hands records to `take`, one in memory at a time, until it gives false. They come in the
    // order of their IDs, or of their titles if a title was asked for.
    void Walk(const RecordSelection& selection,
              const std::function<bool(StoredRecord& record)>& take) const;
    std::int64_t Count() const;
    // Of all records, in order.
    std::vector<std::int64_t> Ids() const;
    // Of those that were added after this ID, in order.
    std::vector<std::int64_t> IdsAfter(std::int64_t id) const;

    const Database& GetDatabase() const { return database_; }

private:
    const Database& database_;
    Statement insert_;
};

}  // namespace quillory
