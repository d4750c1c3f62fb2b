#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/rules/RuleChoice.h>
#include <quillory/text/NearestNames.h>

namespace quillory {
namespace {

[[noreturn]] void RefuseName(const std::string& name) {
    std::vector<std::string> names;
    names.reserve(kRules);
    for (const Rule& rule : Rules()) names.emplace_back(rule.name);
    std::string text = "there is no rule " + name;
    const auto nearest = NearestNames(name, names);
    if (!nearest.empty()) text += "; perhaps " + nearest.front() + " is meant";
    throw UsageError(text + "; quillory check --rules lists them");
}

RuleId Named(const std::string& name) {
    if (const Rule* rule = RuleNamed(name)) return rule->id;
    RefuseName(name);
}

// Faults by the format are told whatever the policy of export says of them.
bool IsOfTheFormat(RuleId rule) {
    return rule == RuleId::NotMarc || rule == RuleId::NotRepeatable;
}

std::optional<Severity> SeverityNamed(const std::string& text) {
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (text == SeverityText(severity)) return severity;
    }
    if (text == "off") return std::nullopt;
    throw UsageError({FaultCode::kNoSuchChoice, {}, text, "error, warning, note, off"});
}

}  // namespace

RuleWeights::RuleWeights(const RuleChoice& choice) {
    for (const Rule& rule : Rules()) weights_[Index(rule.id)] = rule.severity;
    // A system in UTF-8 has no need of it.
    weights_[Index(RuleId::OutsideMarc8)] = std::nullopt;
    for (const auto& [name, severity] : choice.severities) {
        const RuleId rule = Named(name);
        weights_[Index(rule)] = SeverityNamed(severity);
        chosen_[Index(rule)] = true;
    }
    if (!choice.only.empty()) {
        const auto all = weights_;
        weights_ = {};
        chosen_.fill(true);
        for (const std::string& name : choice.only) {
            const RuleId rule = Named(name);
            weights_[Index(rule)] = all[Index(rule)];
        }
    }
    for (const std::string& name : choice.skip) {
        const RuleId rule = Named(name);
        weights_[Index(rule)] = std::nullopt;
        chosen_[Index(rule)] = true;
    }
}

void RuleWeights::Follow(const Policy& policy) {
    for (const Rule& rule : Rules()) {
        const bool isOfLibrary = rule.code != zorby::E_ERROR_CODE{};
        if (!isOfLibrary || chosen_[Index(rule.id)]) continue;
        std::optional<Severity>& weight = weights_[Index(rule.id)];
        if (policy.Wants(rule.code)) {
            weight = policy.SeverityOf(rule.code) == zorby::EST_Error ? Severity::Error
                                                                      : Severity::Warning;
        } else if (!IsOfTheFormat(rule.id)) {
            weight = std::nullopt;
        }
    }
}

}  // namespace quillory
