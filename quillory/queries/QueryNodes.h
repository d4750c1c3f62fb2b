#pragma once

#include <quillory/exchange/Record.h>
#include <quillory/queries/NumberTest.h>
#include <quillory/queries/PlaceSet.h>
#include <quillory/queries/TextTest.h>
#include <quillory/queries/Values.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// Whether a record is valid under the policy in force.
using ValidityTest = std::function<bool(const Record& record)>;

// What a query found in a record: a field or a part of it.
struct QueryHit {
    Place place;
    std::string text;               // UTF-8
    std::vector<TextRange> ranges;  // of the text; none if all of it is meant
};

// A record that is being looked at.
struct QueriedRecord {
    const Record& record;
    ValueReader& reader;
    const ValidityTest& isValid;
};

// A part of an expression, which holds of a record or not.
class QueryNode {
public:
    virtual ~QueryNode() = default;
    virtual bool Holds(const QueriedRecord& queried) = 0;
    // Adds what makes the part hold. Nothing is to be shown where something is not there.
    virtual void AddHits(const QueriedRecord&, std::vector<QueryHit>&) {}
};

using QueryNodePtr = std::unique_ptr<QueryNode>;

// "and" if all of the parts have to hold, or else "or".
class JoinedNode : public QueryNode {
public:
    JoinedNode(bool all, std::vector<QueryNodePtr> parts) : all_(all), parts_(std::move(parts)) {}
    bool Holds(const QueriedRecord& queried) override;
    void AddHits(const QueriedRecord& queried, std::vector<QueryHit>& hits) override;

private:
    bool all_;
    std::vector<QueryNodePtr> parts_;
};

class NotNode : public QueryNode {
public:
    explicit NotNode(QueryNodePtr part) : part_(std::move(part)) {}
    bool Holds(const QueriedRecord& queried) override { return !part_->Holds(queried); }

private:
    QueryNodePtr part_;
};

// Holds if one of the values at its places does.
class ValueNode : public QueryNode {
public:
    explicit ValueNode(PlaceSet places) : places_(std::move(places)) {}
    bool Holds(const QueriedRecord& queried) override;
    void AddHits(const QueriedRecord& queried, std::vector<QueryHit>& hits) override;

private:
    virtual bool HoldsOf(const QueriedRecord& queried, const ValueSlice& slice) = 0;
    virtual std::vector<TextRange> RangesIn(std::string_view, const ValueSlice&) { return {}; }

    PlaceSet places_;
};

class HasNode : public ValueNode {
public:
    using ValueNode::ValueNode;

private:
    bool HoldsOf(const QueriedRecord&, const ValueSlice&) override { return true; }
};

class TextNode : public ValueNode {
public:
    TextNode(PlaceSet places, TextTest test)
        : ValueNode(std::move(places)), test_(std::move(test)) {}

private:
    bool HoldsOf(const QueriedRecord& queried, const ValueSlice& slice) override;
    std::vector<TextRange> RangesIn(std::string_view utf8, const ValueSlice& slice) override;

    TextTest test_;
};

class NumberNode : public ValueNode {
public:
    NumberNode(PlaceSet places, NumberTest test)
        : ValueNode(std::move(places)), test_(std::move(test)) {}

private:
    bool HoldsOf(const QueriedRecord& queried, const ValueSlice& slice) override;

    NumberTest test_;
};

class CountNode : public QueryNode {
public:
    CountNode(PlaceSet places, NumberOperator op, std::uint64_t number)
        : places_(std::move(places)), op_(op), number_(number) {}
    bool Holds(const QueriedRecord& queried) override;

private:
    PlaceSet places_;
    NumberOperator op_;
    std::uint64_t number_;
};

// Of one of these materials by its Leader, or of such a category of material by one of its 007.
class MaterialNode : public QueryNode {
public:
    explicit MaterialNode(std::vector<std::string> names) : names_(std::move(names)) {}
    bool Holds(const QueriedRecord& queried) override;

    // All names that there are.
    static const std::vector<std::string>& Names();
    // Those that a person may mean, who gives one in any case, in the singular or plural.
    static std::vector<std::string> NamesFor(std::string_view given);

private:
    std::vector<std::string> names_;
};

class ValidNode : public QueryNode {
public:
    bool Holds(const QueriedRecord& queried) override { return queried.isValid(queried.record); }
};

}  // namespace quillory
