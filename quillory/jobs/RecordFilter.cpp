#include <quillory/faults/Errors.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/RecordPolicy.h>

namespace quillory {

bool IsValidUnder(Checker& checker, const Record& record, std::vector<Finding>& findings) {
    checker.Check(record, findings);
    return checker.GetPolicy().VerdictOf(findings) != kMustStay;
}

RecordFilter::RecordFilter(const WhereOptions& options, Charset charset) {
    if (options.AsksForAll()) return;
    QueryReading reading = ParseQuery(options.expression, {options.exact, charset});
    if (!reading.query) {
        throw UsageError("--where: " + CaretText(options.expression, reading.fault));
    }
    query_ = std::move(reading.query);
    if (!query_->AsksValidity()) return;
    if (options.isValid) {
        query_->SetValidity(options.isValid);
    } else {
        MakeChecks(charset);
    }
}

void RecordFilter::MakeChecks(Charset charset) {
    settings_.emplace();
    checker_ = MakeChecker({}, charset);
    query_->SetValidity(
        [this](const Record& record) { return IsValidUnder(*checker_, record, findings_); });
}

std::vector<QueryHit> RecordFilter::HitsIn(const Record& record) {
    return query_ ? query_->HitsIn(record) : std::vector<QueryHit>();
}

}  // namespace quillory
