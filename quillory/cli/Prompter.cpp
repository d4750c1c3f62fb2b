#include <quillory/cli/Prompter.h>

#include <algorithm>
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
    for (const Question& question : QuestionsOf(pattern, draft, all_)) {
        const Place& gap = question.place;
        if (IsSameField(gap, leftOut)) continue;
        std::string answer;
        bool isTaken = false;
        while (!isTaken) {
            if (!Ask(pattern, question, answer)) return;
            isTaken = answer.empty() || Take(draft, gap, answer);
        }
        if (!answer.empty()) {
            filled = gap;
        } else if (!IsSameField(gap, filled)) {
            leftOut = gap;
        }
    }
}

bool Prompter::Ask(const Pattern& pattern, const Question& question, std::string& answer) {
    for (;;) {
        questions_ << PlaceText(question.place) << "  " << question.field << ", "
                   << question.subfield << ": " << std::flush;
        if (!std::getline(answers_, answer)) {
            questions_ << "\n";
            return false;
        }
        answer.erase(answer.find_last_not_of(" \t\r") + 1);
        if (answer != "?") return true;
        Help(pattern, question.place);
    }
}

void Prompter::Help(const Pattern& pattern, const Place& gap) {
    std::string help = HelpFor(gap, pattern);
    if (help.empty()) help = "There is no help on this subfield.\n";
    std::string_view rest(help);
    while (!rest.empty()) {
        const std::size_t size = std::min(rest.find('\n'), rest.size());
        questions_ << "  " << rest.substr(0, size) << "\n";
        rest.remove_prefix(std::min(size + 1, rest.size()));
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
