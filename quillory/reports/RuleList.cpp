#include <quillory/reports/RuleList.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/rules/Rule.h>
#include <quillory/text/JsonWriter.h>

namespace quillory {

std::string RulesText() {
    constexpr std::size_t kSeverityWidth = 9;
    const std::size_t width = Widest(Rules(), [](const Rule& rule) { return rule.name; }) + 2;
    const std::string indent(width, ' ');
    std::string text;
    for (const Rule& rule : Rules()) {
        text += Padded(std::string(rule.name), width) +
                Padded(std::string(SeverityText(rule.severity)), kSeverityWidth);
        text.append(rule.title).append("\n");
        text.append(indent).append(rule.why).append("\n");
        text.append(indent).append("such as  ").append(rule.example).append("\n");
        text.append(indent).append("source   ").append(rule.source).append("\n");
    }
    return text;
}

std::string RulesJsonl() {
    std::string text;
    Losses losses;
    JsonWriter json(text, losses);
    for (const Rule& rule : Rules()) {
        json.BeginObject();
        json.Member("rule", rule.name);
        json.Member("severity", SeverityText(rule.severity));
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
