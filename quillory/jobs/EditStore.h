#pragma once

#include <quillory/jobs/EditReport.h>
#include <quillory/jobs/Reporter.h>
#include <quillory/jobs/StoredItems.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillory {

struct EditStoreOptions {
    RecordIds ids;  // none for all
    bool isDryRun = false;
};

// Edits records of the store, all that can be edited or, after a failure, none; what they were is
// kept. Result: as of EditFiles, and findings if a record was left because somebody is changing it
// in a window. Throws FileError.
Status EditStore(const EditStoreOptions& options, EditTask task, EditReport& report,
                 Reporter& reporter);

// Puts back what records of the store were before their last change; of no records, what all were
// that were changed together last. Result: findings if one of them was never changed, or is being
// changed in a window. Throws FileError.
Status UndoEdits(const RecordIds& ids, const Reporter& reporter);

// One change of a record of the store.
struct FormerVersion {
    std::int64_t id = 0;              // of the record
    std::int64_t replaced = 0;        // seconds since 1970 UTC
    std::string change;               // what was done, in words
    std::vector<std::string> before;  // lines in UTF-8
    std::vector<std::string> after;
};

// Hands the changes of records to `take`, the latest of each record first. Result: findings if one
// of them is not there. Throws FileError.
Status ReadHistory(const RecordIds& ids, const Reporter& reporter,
                   const std::function<void(const FormerVersion& version)>& take);

}  // namespace quillory
