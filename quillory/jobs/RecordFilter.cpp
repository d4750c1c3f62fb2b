#include <quillory/faults/Errors.h>
#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/RecordPolicy.h>
#include <quillory/queries/ConditionText.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>

namespace quillory {

bool IsValidUnder(Checker& checker, const Record& record, std::vector<Finding>& findings) {
    checker.Check(record, findings);
    return checker.GetPolicy().VerdictOf(findings) != kMustStay;
}

std::function<bool(const Record&)> ValidityUnder(const CheckerOptions& options) {
    struct Asked {
        explicit Asked(const CheckerOptions& checking) : checker(checking) {}

        Checker checker;
        std::vector<Finding> findings;
        std::mutex oneAtATime;
    };
    const auto asked = std::make_shared<Asked>(options);
    return [asked](const Record& record) {
        const std::lock_guard lock(asked->oneAtATime);
        return IsValidUnder(asked->checker, record, asked->findings);
    };
}

RecordFilter::RecordFilter(const WhereOptions& options, Charset charset, const std::string& name) {
    const QueryOptions queryOptions{options.exact, charset};
    if (!options.condition.empty()) {
        Add(ParseCondition(options.condition, queryOptions), "--where-text", options.condition);
    }
    if (options.expression.empty()) return;
    Add(ParseQuery(options.expression, queryOptions), name, options.expression);
    Query& query = queries_.back();
    if (!query.AsksValidity()) return;
    if (options.isValid) {
        query.SetValidity(options.isValid);
    } else {
        MakeChecks(query, charset);
    }
}

void RecordFilter::Add(QueryReading reading, const std::string& option, const std::string& text) {
    const std::string name = option.empty() ? option : option + ": ";
    if (!reading.query) throw UsageError(name + CaretText(text, reading.fault));
    queries_.push_back(std::move(*reading.query));
}

void RecordFilter::MakeChecks(Query& query, Charset charset) {
    settings_.emplace();
    checker_ = MakeChecker({}, charset);
    query.SetValidity(
        [this](const Record& record) { return IsValidUnder(*checker_, record, findings_); });
}

bool RecordFilter::Takes(const Record& record) {
    return std::ranges::all_of(queries_, [&](Query& query) { return query.Matches(record); });
}

std::vector<QueryHit> RecordFilter::HitsIn(const Record& record) {
    std::vector<QueryHit> hits;
    for (Query& query : queries_) {
        for (QueryHit& hit : query.HitsIn(record)) hits.push_back(std::move(hit));
    }
    return hits;
}

}  // namespace quillory
