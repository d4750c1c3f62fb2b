#pragma once

#include <quillory/rules/Remark.h>
#include <quillory/rules/RuleChoice.h>

#include <utility>
#include <vector>

namespace quillory {

// Takes what rules say of one record, as far as it is wanted.
class RemarkSink {
public:
    // Keeps the references.
    RemarkSink(const RuleWeights& weights, std::vector<Remark>& remarks)
        : weights_(weights), remarks_(remarks) {}

    bool Wants(RuleId rule) const { return weights_.Wants(rule); }
    // `codes`: as Remark has them.
    void Add(RuleId rule, const Place& place, std::string found = {}, std::string allowed = {},
             const Place& codes = {}) {
        Add(RuleOf(rule), place, std::move(found), std::move(allowed), codes);
    }
    void Add(const Rule& rule, const Place& place, std::string found, std::string allowed = {},
             const Place& codes = {}) {
        const auto severity = weights_.Of(rule.id);
        if (!severity) return;
        remarks_.push_back({&rule, *severity, place, std::move(found), std::move(allowed), codes});
    }

private:
    const RuleWeights& weights_;
    std::vector<Remark>& remarks_;
};

}  // namespace quillory
