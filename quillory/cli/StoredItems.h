#pragma once

#include <quillory/cli/Reporter.h>
#include <quillory/store/RecordStore.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace quillory {

// Hands records of the store to `take`, which says whether to go on: those of the IDs in their
// order, or all. A record's number is its ID. Result: findings if there is no record of some ID,
// which is said.
Status ReadStored(const RecordStore& store, const std::vector<std::int64_t>& ids,
                  Reporter& reporter, const std::function<bool(Item& item)>& take);

// Says which record is not there.
void SayMissing(const Reporter& reporter, std::int64_t id);

}  // namespace quillory
