#include <quillory/reports/RuleList.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/JsonWriter.h>

#include <vector>

namespace quillory {
namespace {

std::vector<Rule> AllRules(std::span<const Rule> ownRules) {
    std::vector<Rule> rules(Rules().begin(), Rules().end());
    rules.insert(rules.end(), ownRules.begin(), ownRules.end());
    return rules;
}

std::string_view WeightText(const Rule& rule, const RuleWeights& weights) {
    const auto severity = weights.Of(rule.id);
    return severity ? SeverityText(*severity) : "off";
}

}  // namespace

std::string RulesText(std::span<const Rule> ownRules, const RuleWeights& weights) {
    constexpr std::size_t kSeverityWidth = 9;
    const std::vector<Rule> rules = AllRules(ownRules);
    const std::size_t width = Widest(rules, [](const Rule& rule) { return rule.name; }) + 2;
    std::string text;
    const auto addLine = [&](std::string_view label, std::string_view words) {
        if (!words.empty()) text.append(width, ' ').append(label).append(words).append("\n");
    };
    for (const Rule& rule : rules) {
        text += Padded(std::string(rule.name), width) +
                Padded(std::string(WeightText(rule, weights)), kSeverityWidth);
        text.append(rule.title).append("\n");
        addLine("", rule.why);
        addLine("such as  ", rule.example);
        addLine("source   ", rule.source);
    }
    return text;
}

std::string RulesJsonl(std::span<const Rule> ownRules, const RuleWeights& weights) {
    std::string text;
    Losses losses;
    JsonWriter json(text, losses);
    for (const Rule& rule : AllRules(ownRules)) {
        json.BeginObject();
        json.Member("rule", rule.name);
        json.Member("severity", WeightText(rule, weights));
        json.Member("code", static_cast<int>(rule.code));
        json.Member("title", rule.title);
        json.Member("why", rule.why);
        json.Member("example", rule.example);
        json.Member("source", rule.source);
        json.EndObject();
        text += '\n';
    }
    return text;
}

}  // namespace quillory
