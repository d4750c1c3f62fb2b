#pragma once

#include <quillory/checks/Checker.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/WhereOptions.h>
#include <quillory/queries/Query.h>

#include <functional>
#include <optional>
#include <vector>

namespace quillory {

// Tells the records that a job works on from all others.
class RecordFilter {
public:
    // `charset` is that of the records. Throws UsageError, which shows what is wrong with the
    // expression after `name`, if there is one, and FileError if checks are asked for whose data
    // files can't be read.
    RecordFilter(const WhereOptions& options, Charset charset, const std::string& name = "--where");
    RecordFilter(const RecordFilter&) = delete;
    RecordFilter& operator=(const RecordFilter&) = delete;

    bool Takes(const Record& record);
    // As Query::HitsIn.
    std::vector<QueryHit> HitsIn(const Record& record);

private:
    void Add(QueryReading reading, const std::string& option, const std::string& text);
    void MakeChecks(Query& query, Charset charset);

    std::vector<Query> queries_;  // all of which have to match
    std::optional<SettingsKeeper> settings_;
    std::optional<Checker> checker_;
    std::vector<Finding> findings_;
};

// Whether a record with these findings is what a query calls valid.
bool IsValidUnder(Checker& checker, const Record& record, std::vector<Finding>& findings);
// The same for WhereOptions, with what is in force now. Several threads may ask at a time.
std::function<bool(const Record& record)> ValidityUnder(const CheckerOptions& options);

}  // namespace quillory
