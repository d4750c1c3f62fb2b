#pragma once

#include <quillory/rules/Remark.h>
#include <quillory/rules/RemarkCounts.h>
#include <quillory/rules/RuleChoice.h>

#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace quillory {

// What a remark says beside the words of its rule.
struct RemarkWords {
    std::string found = {};
    std::string allowed = {};
    Place codes = {};  // as Remark has them
};

inline constexpr std::uint64_t kAllRemarks = std::numeric_limits<std::uint64_t>::max();

// What is done with remarks beside being kept.
struct RemarkTaking {
    // How many by each rule are kept, of those that come one after the other. The others are only
    // counted.
    std::uint64_t ofEachRule = kAllRemarks;
    RemarkCounts counts;
};

// Takes what rules say of one record, as far as it is wanted.
class RemarkSink {
public:
    // Keeps the references. Without `taking`, all remarks are kept, and none is counted.
    RemarkSink(const RuleWeights& weights, std::vector<Remark>& remarks,
               RemarkTaking* taking = nullptr)
        : weights_(weights), remarks_(remarks), taking_(taking) {}

    bool Wants(RuleId rule) const { return weights_.Wants(rule); }
    void Add(RuleId rule, const Place& place) { Begin(RuleOf(rule), place); }
    // `codes`: as Remark has them.
    void Add(RuleId rule, const Place& place, std::string found, std::string allowed = {},
             const Place& codes = {}) {
        Add(RuleOf(rule), place, std::move(found), std::move(allowed), codes);
    }
    void Add(const Rule& rule, const Place& place, std::string found, std::string allowed = {},
             const Place& codes = {}) {
        if (Remark* remark = Begin(rule, place)) {
            remark->found = std::move(found);
            remark->allowed = std::move(allowed);
            remark->codes = codes;
        }
    }
    // `makeWords` is called only for a remark that is kept.
    template <std::invocable MakeWords>
    void Add(RuleId rule, const Place& place, MakeWords makeWords) {
        if (Remark* remark = Begin(RuleOf(rule), place)) {
            RemarkWords words = makeWords();
            remark->found = std::move(words.found);
            remark->allowed = std::move(words.allowed);
            remark->codes = words.codes;
        }
    }

private:
    // Null if the rule is off, or the remark is only counted.
    Remark* Begin(const Rule& rule, const Place& place) {
        const auto severity = weights_.Of(rule.id);
        if (!severity) return nullptr;
        if (taking_ != nullptr) {
            const std::uint64_t count = taking_->counts.Count(rule, *severity, place);
            if (count > taking_->ofEachRule) return nullptr;
        }
        return &remarks_.emplace_back(Remark{&rule, *severity, place});
    }

    const RuleWeights& weights_;
    std::vector<Remark>& remarks_;
    RemarkTaking* taking_;
};

}  // namespace quillory
