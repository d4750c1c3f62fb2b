#include <quillory/cli/Prompter.h>
#include <quillory/places/Tag.h>
#include <quillory/text/QmText.h>

#include <string_view>

namespace quillory {
namespace {

std::string PlaceOf(const Draft::Gap& gap) {
    return TagText(gap.tag) + "[" + std::to_string(gap.occurrence) + "]" + gap.code;
}

// Whether both stand in one field.
bool IsSameField(const Draft::Gap& a, const Draft::Gap& b) {
    return a.tag == b.tag && a.occurrence == b.occurrence;
}

}  // namespace

// A field whose first subfield is left out is left out.
void Prompter::Fill(const Pattern& pattern, Draft& draft) {
    questions_ << pattern.Name()
               << ": Enter alone leaves a subfield out, ? helps, Ctrl-D ends the questions.\n";
    Draft::Gap leftOut;
    Draft::Gap filled;
    for (const Draft::Gap& gap : draft.Gaps()) {
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

bool Prompter::IsAsked(const Pattern& pattern, const Draft::Gap& gap) const {
    if (all_) return true;
    std::string prompted;
    pattern.Workform().SubfieldPrompt(gap.tag, prompted);
    return pattern.Workform().FieldPriority(gap.tag) != 0 &&
           prompted.find(gap.code) != prompted.npos;
}

bool Prompter::Ask(const Pattern& pattern, const Draft::Gap& gap, std::string& answer) {
    constexpr zorby::EDISPLAYOPTIONS kNames = zorby::EDO_NameOnly;
    std::string field;
    std::string subfield;
    zorby::CTemplate::GetNameOfFieldAndSubfield(gap.tag, gap.code, field, subfield, kNames);
    for (;;) {
        questions_ << TagText(gap.tag) << " $" << gap.code << "  " << QmToUtf8(field) << ", "
                   << QmToUtf8(subfield) << ": " << std::flush;
        if (!std::getline(answers_, answer)) {
            questions_ << "\n";
            return false;
        }
        answer.erase(answer.find_last_not_of(" \t\r") + 1);
        if (answer != "?") return true;
        Help(pattern, gap);
    }
}

void Prompter::Help(const Pattern& pattern, const Draft::Gap& gap) {
    std::string rules;
    std::string reminders;
    std::string examples;
    pattern.Workform().SubfieldRules(gap.tag, gap.code, rules);
    pattern.Workform().SubfieldReminders(gap.tag, gap.code, reminders);
    pattern.Workform().SubfieldExamples(gap.tag, gap.code, examples);
    if (rules.empty() && reminders.empty() && examples.empty()) {
        questions_ << "  There is no help for it.\n";
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

bool Prompter::Take(Draft& draft, const Draft::Gap& gap, const std::string& answer) {
    try {
        draft.Take(ReadEntry(PlaceOf(gap), answer));
        return true;
    } catch (const EntryError& error) {
        questions_ << "  " << error.what() << "\n";
        return false;
    }
}

}  // namespace quillory
