#pragma once

#include <quillory/rules/Remark.h>
#include <quillory/rules/RuleChoice.h>

#include <concepts>
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

// How many remarks by each rule get words, of those that come one after the other. The others are
// only counted by who asked for it.
class WordLimit {
public:
    static constexpr std::uint64_t kAll = std::numeric_limits<std::uint64_t>::max();

    void Set(std::uint64_t ofEachRule) { most_ = ofEachRule; }
    bool Takes(RuleId rule) {
        if (most_ == kAll) return true;
        const auto index = static_cast<std::size_t>(rule);
        if (index >= given_.size()) given_.resize(index + 1);
        return given_[index] < most_ && ++given_[index] > 0;
    }

private:
    std::uint64_t most_ = kAll;
    std::vector<std::uint64_t> given_;  // by the number of the rule
};

// Takes what rules say of one record, as far as it is wanted.
class RemarkSink {
public:
    // Keeps the references. Without a limit, all remarks get their words.
    RemarkSink(const RuleWeights& weights, std::vector<Remark>& remarks, WordLimit* limit = nullptr)
        : weights_(weights), remarks_(remarks), limit_(limit) {}

    bool Wants(RuleId rule) const { return weights_.Wants(rule); }
    // `codes`: as Remark has them.
    void Add(RuleId rule, const Place& place, std::string found = {}, std::string allowed = {},
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
    // `makeWords` is called only if they are wanted, too.
    template <std::invocable MakeWords>
    void Add(RuleId rule, const Place& place, MakeWords makeWords) {
        Remark* remark = Begin(RuleOf(rule), place);
        if (remark == nullptr || (limit_ != nullptr && !limit_->Takes(rule))) return;
        RemarkWords words = makeWords();
        remark->found = std::move(words.found);
        remark->allowed = std::move(words.allowed);
        remark->codes = words.codes;
    }

private:
    // Null if the rule is off.
    Remark* Begin(const Rule& rule, const Place& place) {
        const auto severity = weights_.Of(rule.id);
        return severity ? &remarks_.emplace_back(Remark{&rule, *severity, place}) : nullptr;
    }

    const RuleWeights& weights_;
    std::vector<Remark>& remarks_;
    WordLimit* limit_;
};

}  // namespace quillory
