#include <quillory/cataloging/Questions.h>
#include <quillory/text/QmText.h>

#include <algorithm>

namespace quillory {
namespace {

Question QuestionFor(const Place& gap) {
    constexpr zorby::EDISPLAYOPTIONS kNames = zorby::EDO_NameOnly;
    std::string field;
    std::string subfield;
    zorby::CTemplate::GetNameOfFieldAndSubfield(gap.Number(), gap.code, field, subfield, kNames);
    return {gap, QmToUtf8(field), QmToUtf8(subfield)};
}

// Ends with its last line.
std::string LinesOf(std::string_view text) {
    std::string lines = QmLinesToUtf8(text);
    if (!lines.empty() && lines.back() != '\n') lines += '\n';
    return lines;
}

}  // namespace

bool IsAsked(const zorby::CTemplate& workform, const Place& subfield) {
    std::string prompted;
    workform.SubfieldPrompt(subfield.Number(), prompted);
    return workform.FieldPriority(subfield.Number()) != 0 &&
           prompted.find(subfield.code) != prompted.npos;
}

std::vector<Question> QuestionsOf(const Pattern& pattern, const Draft& draft, bool all) {
    std::vector<Question> questions;
    for (const Place& gap : draft.Gaps()) {
        if (all || IsAsked(pattern.Workform(), gap)) questions.push_back(QuestionFor(gap));
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
    return LinesOf(rules) + LinesOf(reminders) + LinesOf(examples);
}

}  // namespace quillory
