#pragma once

#include <quillory/checks/Policy.h>
#include <quillory/rules/Rule.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// Which rules a person wants, by their names, and how much each weighs.
struct RuleChoice {
    std::vector<std::pair<std::string, std::string>> severities;  // a name; error, warning, ...
    std::vector<std::string> only;                                // no others; all if empty
    std::vector<std::string> skip;
};

// How much each rule weighs; nothing for one that is off.
class RuleWeights {
public:
    // Throws UsageError for a name or a severity that does not exist.
    explicit RuleWeights(const RuleChoice& choice = {});

    // Gives the rules of the library the weight that a policy has for them, unless the user has
    // said otherwise.
    void Follow(const Policy& policy);

    bool Wants(RuleId rule) const { return weights_[Index(rule)].has_value(); }
    std::optional<Severity> Of(RuleId rule) const { return weights_[Index(rule)]; }

private:
    static std::size_t Index(RuleId rule) { return static_cast<std::size_t>(rule); }

    std::array<std::optional<Severity>, kRules> weights_;
    std::array<bool, kRules> chosen_{};  // by the user
};

}  // namespace quillory
