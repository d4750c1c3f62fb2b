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

// What lists and searches need of a record, in UTF-8 without control characters.
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

// A record of the store. The views and the bytes hold until the next one is asked for.
struct StoredRecord {
    std::int64_t id = 0;
    RecordSummary summary;
    std::int64_t added = 0;    // seconds since 1970 UTC
    std::int64_t changed = 0;  // as added
    int workform = 0;          // 0 for none, or one that has been deleted
    std::string bytes;
};

// What Walk gives; the empty selection is all records.
struct RecordSelection {
    std::int64_t after = 0;                    // IDs above this
    std::optional<std::string> controlNumber;  // the whole of it, but for the number of blanks
    std::optional<std::string> titlePrefix;    // without regard to case and diacritics
};

struct IdRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

// The records that quillory keeps, by an ID from 1 that is never given twice. Everything that
// fails throws FileError.
class RecordStore {
public:
    explicit RecordStore(const Database& database);

    // The result is the ID.
    std::int64_t Add(const NewRecord& record);
    // At least one, all or none. Their IDs follow each other.
    IdRange AddAll(std::span<const NewRecord> records);
    // False if there is no such record.
    bool Delete(std::int64_t id);

    std::optional<StoredRecord> Find(std::int64_t id) const;
    // One record in memory at a time, until `take` gives false; in the order of their IDs, or of
    // the beginnings of their titles if a title was asked for.
    void Walk(const RecordSelection& selection,
              const std::function<bool(StoredRecord& record)>& take) const;
    std::int64_t Count() const;

    const Database& GetDatabase() const { return database_; }

private:
    const Database& database_;
    Statement insert_;
};

// Gathers records and adds them to the store many at a time, in one transaction each time. While
// records are gathered, others may write to the store.
class RecordBatch {
public:
    // Adds after so many records, and before that if they take up much memory.
    explicit RecordBatch(RecordStore& store, std::size_t size = 50000);
    ~RecordBatch();
    RecordBatch(const RecordBatch&) = delete;
    RecordBatch& operator=(const RecordBatch&) = delete;

    void Add(NewRecord record);
    // Adds what is gathered. Records not yet added when the object goes are dropped.
    void Flush();

    // Records that are in the store for good, and their first and last ID.
    std::uint64_t Saved() const { return saved_; }
    IdRange Ids() const { return ids_; }

private:
    RecordStore& store_;
    std::size_t size_;
    std::size_t bytes_ = 0;
    std::vector<NewRecord> gathered_;
    std::uint64_t saved_ = 0;
    IdRange ids_;
};

}  // namespace quillory
