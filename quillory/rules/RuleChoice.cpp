#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/faults/Hints.h>
#include <quillory/rules/RuleChoice.h>
#include <quillory/text/NearestNames.h>

#include <algorithm>

namespace quillory {
namespace {

[[noreturn]] void RefuseName(const std::string& name, std::span<const Rule> ownRules) {
    std::vector<std::string> names;
    names.reserve(kRules + ownRules.size());
    for (const Rule& rule : Rules()) names.emplace_back(rule.name);
    for (const Rule& rule : ownRules) names.emplace_back(rule.name);
    std::string text = "there is no rule " + name + PerhapsMeant(name, names);
    const std::string hint =
        HintText(kRulesHint, Place::OfRecord(), "quillory check --rules lists them");
    if (!hint.empty()) text += "; " + hint;
    throw UsageError(text);
}

// Faults by the format are told whatever the policy of export says of them.
bool IsOfTheFormat(RuleId rule) {
    return rule == RuleId::NotMarc || rule == RuleId::NotRepeatable;
}

}  // namespace

const Rule& KnownRule(const std::string& name, std::span<const Rule> ownRules) {
    if (const Rule* rule = RuleNamed(name)) return *rule;
    const auto own = std::ranges::find(ownRules, name, &Rule::name);
    if (own == ownRules.end()) RefuseName(name, ownRules);
    return *own;
}

std::optional<Severity> SeverityNamed(const std::string& text) {
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (text == SeverityText(severity)) return severity;
    }
    if (text == "off") return std::nullopt;
    throw UsageError({FaultCode::kNoSuchChoice, {}, text, "error, warning, note, off"});
}

RuleWeights::RuleWeights(const RuleChoice& choice, std::span<const Rule> ownRules)
    : own_(ownRules) {
    weights_.reserve(kRules + own_.size());
    for (const Rule& rule : Rules()) weights_.push_back({rule.severity});
    for (const Rule& rule : own_) weights_.push_back({rule.severity});
    // A system in UTF-8 has no need of it.
    weights_[Index(RuleId::OutsideMarc8)].isOn = false;
    Choose(choice);
}

void RuleWeights::Choose(const RuleChoice& choice) {
    for (const auto& [name, text] : choice.severities) {
        Weight& weight = Named(name);
        const auto severity = SeverityNamed(text);
        weight = {severity.value_or(weight.severity), severity.has_value(), true};
    }
    if (!choice.only.empty()) TakeOnly(choice.only);
    for (const std::string& name : choice.skip) {
        Weight& weight = Named(name);
        weight = {weight.severity, false, true};
    }
    const bool isNoneLeft = std::ranges::none_of(weights_, &Weight::isOn);
    if (!choice.only.empty() && isNoneLeft) {
        throw UsageError("no rule is left: skip names all that only does");
    }
}

// What was turned off before is wanted now.
void RuleWeights::TakeOnly(const std::vector<std::string>& names) {
    for (Weight& weight : weights_) weight = {weight.severity, false, true};
    for (const std::string& name : names) Named(name).isOn = true;
}

void RuleWeights::Follow(const Policy& policy) {
    for (const Rule& rule : Rules()) {
        const bool isOfLibrary = rule.code != zorby::E_ERROR_CODE{};
        Weight& weight = weights_[Index(rule.id)];
        if (!isOfLibrary || weight.isChosen) continue;
        if (policy.Wants(rule.code)) {
            weight.severity = policy.SeverityOf(rule.code) == zorby::EST_Error ? Severity::Error
                                                                               : Severity::Warning;
        } else if (!IsOfTheFormat(rule.id)) {
            weight.isOn = false;
        }
    }
}

}  // namespace quillory
