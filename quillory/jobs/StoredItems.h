#pragma once

#include <quillory/jobs/Reporter.h>
#include <quillory/store/RecordStore.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

// The store for commands that only read; nothing if there is none yet, which is as good as an empty
// one. Throws FileError for one that can't be used.
std::optional<Database> OpenStoreToRead();

// Throws FileError if what is written to this file would go into the store.
void CheckNotTheStore(const std::string& path);

// Hands records of the store to `take`, which says whether to go on: those of the IDs in their
// order, or all. A record's number is its ID. Result: findings if there is no record of some ID,
// which is said.
Status ReadStored(const std::optional<Database>& database, const std::vector<std::int64_t>& ids,
                  Reporter& reporter, const std::function<bool(Item& item)>& take);

// Says which record is not there.
void SayMissing(const Reporter& reporter, std::int64_t id);

}  // namespace quillory
