#pragma once

#include <quillory/places/Place.h>
#include <quillory/rules/Rule.h>

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// How often a rule was broken.
struct RuleCount {
    const Rule* rule = nullptr;          // null as long as nothing is counted
    Severity severity = Severity::Note;  // the heaviest of the findings
    std::uint64_t count = 0;
    std::uint64_t records = 0;     // that break it
    std::uint64_t lastRecord = 0;  // of those, by its number among those counted here
};

// Findings by severity.
using SeverityCounts = std::array<std::uint64_t, 3>;

// What was found on records that come one after the other, in numbers.
class RemarkCounts {
public:
    void BeginRecord() {
        ++records_;
        heaviest_.reset();
    }
    // Result: how often the rule was broken so far.
    std::uint64_t Count(const Rule& rule, Severity severity, const Place& place);
    // Of what was found on the record in hand; nothing where nothing was.
    std::optional<Severity> Heaviest() const { return heaviest_; }

    // Adds what was found on other records, or by other rules.
    void Add(const RemarkCounts& others);

    // The rules that were broken: those of the table by their numbers, a library's own by name.
    std::vector<RuleCount> Rules() const;
    // By tag; empty for what is said of whole records.
    std::map<std::string, SeverityCounts> Fields() const;

private:
    RuleCount& CountOf(std::size_t rule);
    SeverityCounts& CountsOf(const Place& place);
    SeverityCounts& CountsOfOther(std::string_view tag);

    std::uint64_t records_ = 0;
    std::optional<Severity> heaviest_;
    std::vector<RuleCount> rules_;        // by their numbers; counts are 0 where none is broken
    std::vector<SeverityCounts> fields_;  // by the numbers of the tags
    std::map<std::string, SeverityCounts, std::less<>> otherPlaces_;
};

}  // namespace quillory
