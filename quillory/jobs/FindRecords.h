#pragma once

#include <quillory/jobs/ReadFiles.h>
#include <quillory/queries/Query.h>

#include <cstdint>
#include <vector>

namespace quillory {

// Told of the records that were looked for.
class FindReport {
public:
    virtual ~FindReport() = default;
    // What was found in a record, which may be nothing; see Query::HitsIn.
    virtual void TakeRecord(const Item& item, const std::vector<QueryHit>& hits) = 0;
    virtual void Finish(std::uint64_t found) = 0;
};

struct FindOptions {
    InputOptions input;
    bool onlyCount = false;  // the report is told the number alone
};

// Tells the report of the records that `input.where` asks for. Result: kStatusFindings if there is
// none, or for damage. Throws FileError, and UsageError if nothing is asked for.
Status FindRecords(const FindOptions& options, FindReport& report, Reporter& reporter);

}  // namespace quillory
