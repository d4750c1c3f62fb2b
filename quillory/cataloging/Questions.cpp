#include <quillory/cataloging/Questions.h>
#include <quillory/text/QmText.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsAsked(const Pattern& pattern, const Place& gap) {
    std::string prompted;
    pattern.Workform().SubfieldPrompt(gap.Number(), prompted);
    return pattern.Workform().FieldPriority(gap.Number()) != 0 &&
           prompted.find(gap.code) != prompted.npos;
}

Question QuestionFor(const Place& gap) {
    constexpr zorby::EDISPLAYOPTIONS kNames = zorby::EDO_NameOnly;
    std::string field;
    std::string subfield;
    zorby::CTemplate::GetNameOfFieldAndSubfield(gap.Number(), gap.code, field, subfield, kNames);
    return {gap, QmToUtf8(field), QmToUtf8(subfield)};
}

}  // namespace

std::vector<Question> QuestionsOf(const Pattern& pattern, const Draft& draft, bool all) {
    std::vector<Question> questions;
    for (const Place& gap : draft.Gaps()) {
        if (all || IsAsked(pattern, gap)) questions.push_back(QuestionFor(gap));
    }
    return questions;
}

std::string HelpFor(const Place& subfield, const Pattern& pattern) {
    std::string rules;
    std::string reminders;
    std::string examples;
    const unsigned tag = subfield.Number();
    pattern.Workform().SubfieldRules(tag, subfield.code, rules);
    pattern.Workform().SubfieldReminders(tag, subfield.code, reminders);
    pattern.Workform().SubfieldExamples(tag, subfield.code, examples);
    std::string help;
    for (const std::string& text : {rules, reminders, examples}) {
        std::string_view rest(text);
        while (!rest.empty()) {
            const std::size_t size = std::min(rest.find('\n'), rest.size());
            help += QmToUtf8(rest.substr(0, size)) + '\n';
            rest.remove_prefix(std::min(size + 1, rest.size()));
        }
    }
    return help;
}

}  // namespace quillory
