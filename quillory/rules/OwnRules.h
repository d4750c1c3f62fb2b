#pragma once

#include <quillory/queries/Query.h>
#include <quillory/rules/RemarkSink.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillory {

// A rule of a library's own: what is said of each record for which a condition holds.
struct OwnRule {
    std::string name;
    Severity severity = Severity::Warning;
    std::string message;  // with {found} for what the condition found
    std::string why;
    std::string example;
    std::string source;
    std::optional<Place> place;  // what it is about; else what the condition found
    Query where;
};

// A library's own rules, with numbers after those of the table.
class OwnRules {
public:
    OwnRules() = default;
    explicit OwnRules(std::vector<OwnRule> rules);

    std::span<const Rule> List() const { return list_; }
    void Check(const Record& record, RemarkSink& remarks);

private:
    static void Tell(OwnRule& own, const Rule& rule, const Record& record, RemarkSink& remarks);

    std::vector<OwnRule> rules_;
    std::vector<std::string> titles_;
    std::vector<Rule> list_;  // of the same, with views of their texts
};

}  // namespace quillory
