#pragma once

#include <quillory/queries/QueryNodes.h>
#include <quillory/queries/TextFault.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

struct QueryOptions {
    bool exact = false;              // case and diacritics count
    Charset charset = kCharsetAuto;  // of the records; auto: each record is asked
};

// Says which records are meant: an expression such as
//     245a contains "rivers" and not (has 856u or count(650) > 3)
// The language is told in docs/where.md. A query looks at one record at a time, whatever form it
// came in, and keeps what it needs to be quick.
class Query {
public:
    explicit Query(QueryNodePtr root, Charset charset = kCharsetAuto)
        : root_(std::move(root)), reader_(charset) {}

    bool Matches(const Record& record);
    // What makes a record match, in the order of the expression; nothing for a record that matches
    // for what it does not have.
    std::vector<QueryHit> HitsIn(const Record& record);

    // How records are checked. To be set, for a query that asks whether records are valid, before
    // it looks at one.
    bool AsksValidity() const { return asksValidity_; }
    void SetValidity(ValidityTest isValid) { isValid_ = std::move(isValid); }

private:
    friend class QueryParser;

    QueryNodePtr root_;
    ValueReader reader_;
    bool asksValidity_ = false;
    ValidityTest isValid_;
};

struct QueryReading {
    std::optional<Query> query;
    TextFault fault;  // in the expression; there is no query then
};

// Takes any bytes, and time in proportion to them.
QueryReading ParseQuery(std::string_view expression, const QueryOptions& options = {});

}  // namespace quillory
