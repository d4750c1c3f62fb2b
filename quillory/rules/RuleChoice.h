#pragma once

#include <quillory/checks/Policy.h>
#include <quillory/rules/Rule.h>

#include <optional>
#include <span>
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

// The rule of a name, of the table or of a library's own. Throws UsageError, which names the
// nearest, if there is none.
const Rule& KnownRule(const std::string& name, std::span<const Rule> ownRules);

// Nothing for "off". Throws UsageError for what is no weight.
std::optional<Severity> SeverityNamed(const std::string& text);

// How much each rule weighs; nothing for one that is off.
class RuleWeights {
public:
    // As the rules themselves have it, and then by the choice. `ownRules` are those that a library
    // has beside the table. Throws UsageError for a name or a severity that does not exist.
    explicit RuleWeights(const RuleChoice& choice = {}, std::span<const Rule> ownRules = {});

    // Another choice, which goes before what was chosen until now. Throws UsageError.
    void Choose(const RuleChoice& choice);

    // Gives the rules of the library the weight that a policy has for them, unless the user has
    // said otherwise.
    void Follow(const Policy& policy);

    bool Wants(RuleId rule) const { return Of(rule).has_value(); }
    std::optional<Severity> Of(RuleId rule) const {
        const Weight& weight = weights_[Index(rule)];
        return weight.isOn ? std::optional(weight.severity) : std::nullopt;
    }

private:
    struct Weight {
        Severity severity = Severity::Note;
        bool isOn = true;
        bool isChosen = false;  // by the user
    };

    static std::size_t Index(RuleId rule) { return static_cast<std::size_t>(rule); }
    Weight& Named(const std::string& name) { return weights_[Index(KnownRule(name, own_).id)]; }
    void TakeOnly(const std::vector<std::string>& names);

    std::span<const Rule> own_;
    std::vector<Weight> weights_;  // by the numbers of the rules
};

}  // namespace quillory
