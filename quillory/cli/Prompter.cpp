#include <quillory/cli/Prompter.h>
#include <quillory/text/QmText.h>

#include <string_view>

namespace quillory {
namespace {

// Whether both are in one field.
bool IsSameField(const Place& a, const Place& b) {
    return a.tag == b.tag && a.occurrence == b.occurrence;
}

}  // namespace

// If the first subfield of a field is left out, so is the field.
void Prompter::Fill(const Pattern& pattern, Draft& draft) {
    questions_ << pattern.Name()
               << ": Enter alone leaves a subfield out, ? helps, Ctrl-D ends the questions.\n";
    Place leftOut;
    Place filled;
    for (const Place& gap : draft.Gaps()) {
        if (IsSameField(gap, leftOut) || !IsAsked(pattern, gap)) continue;
        std::string answer;
        bool isTaken = false;
        while (!isTaken) {
            if (!Ask(pattern, gap, answer)) return;
            isTaken = answer.empty() || Take(draft, gap, answer);
        }
        if (!answer.empty()) {
            filled = gap;
        } else if (!IsSameField(gap, filled)) {
            leftOut = gap;
        }
    }
}

bool Prompter::IsAsked(const Pattern& pattern, const Place& gap) const {
    if (all_) return true;
    std::string prompted;
    pattern.Workform().SubfieldPrompt(gap.Number(), prompted);
    return pattern.Workform().FieldPriority(gap.Number()) != 0 &&
           prompted.find(gap.code) != prompted.npos;
}

bool Prompter::Ask(const Pattern& pattern, const Place& gap, std::string& answer) {
    constexpr zorby::EDISPLAYOPTIONS kNames = zorby::EDO_NameOnly;
    std::string field;
    std::string subfield;
    zorby::CTemplate::GetNameOfFieldAndSubfield(gap.Number(), gap.code, field, subfield, kNames);
    for (;;) {
        questions_ << PlaceText(gap) << "  " << QmToUtf8(field) << ", " << QmToUtf8(subfield)
                   << ": " << std::flush;
        if (!std::getline(answers_, answer)) {
            questions_ << "\n";
            return false;
        }
        answer.erase(answer.find_last_not_of(" \t\r") + 1);
        if (answer != "?") return true;
        Help(pattern, gap);
    }
}

void Prompter::Help(const Pattern& pattern, const Place& gap) {
    std::string rules;
    std::string reminders;
    std::string examples;
    pattern.Workform().SubfieldRules(gap.Number(), gap.code, rules);
    pattern.Workform().SubfieldReminders(gap.Number(), gap.code, reminders);
    pattern.Workform().SubfieldExamples(gap.Number(), gap.code, examples);
    if (rules.empty() && reminders.empty() && examples.empty()) {
        questions_ << "  There is no help on this subfield.\n";
    }
    for (const std::string& text : {rules, reminders, examples}) {
        std::string_view rest(text);
        while (!rest.empty()) {
            const std::size_t size = std::min(rest.find('\n'), rest.size());
            questions_ << "  " << QmToUtf8(rest.substr(0, size)) << "\n";
            rest.remove_prefix(std::min(size + 1, rest.size()));
        }
    }
}

bool Prompter::Take(Draft& draft, const Place& gap, const std::string& answer) {
    try {
        draft.Take(MakeEntry(gap, answer));
        return true;
    } catch (const EntryError& error) {
        questions_ << "  " << error.what() << "\n";
        return false;
    }
}

}  // namespace quillory
