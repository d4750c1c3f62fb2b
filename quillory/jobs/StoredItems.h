#pragma once

#include <quillory/jobs/Reporter.h>
#include <quillory/jobs/WhereOptions.h>
#include <quillory/store/RecordStore.h>
#include <zorby/record/CommFormat.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

// The store for jobs that only read. Nothing if there is none yet, which is the same as an empty
// one. Throws FileError for a store that can't be used.
std::optional<Database> OpenStoreToRead();

bool IsTheStore(const std::string& path);

using RecordIds = std::vector<std::int64_t>;

// Which records of the store a job works on.
struct StoredChoice {
    RecordIds ids;  // none for all
    WhereOptions where = {};
};

// Hands records of the store to `take`, which says whether to go on: those of the IDs in their
// order, or all if there are no IDs, as far as they match. A record's number is its ID. Result:
// findings if an ID has no record, which is reported. Throws FileError, and UsageError for an
// expression that can't be read.
Status ReadStored(const std::optional<Database>& database, const StoredChoice& choice,
                  Reporter& reporter, const std::function<bool(Item& item)>& take);

// A stored record as an item. The views look into `stored` and `fields`.
void ReadItem(const StoredRecord& stored, zorby::CommFormatFields& fields, Item& item);

// Reports that an ID has no record.
void SayMissing(const Reporter& reporter, std::int64_t id);

}  // namespace quillory
