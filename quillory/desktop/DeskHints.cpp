#include <quillory/desktop/DeskHints.h>

#include <QCoreApplication>
#include <algorithm>

namespace quillory {
namespace {

struct Words {
    std::string_view id;
    const char* text;
};

// Of faults and rules that name a command on the command line; of one that is not here the desk
// says nothing more.
constexpr Words kWords[] = {
    {"title-in-capitals",
     QT_TRANSLATE_NOOP("Hints", "write it with capitals where the language has them")},
    {"language-unknown", QT_TRANSLATE_NOOP("Hints", "F8 lists the codes, in the form of the 008")},
    {"country-code-unknown",
     QT_TRANSLATE_NOOP("Hints", "F8 lists the codes, in the form of the 008")},
    {"not-a-code", QT_TRANSLATE_NOOP("Hints", "the form of the field lists the codes")},
    {"obsolete-code", QT_TRANSLATE_NOOP("Hints", "the form of the field lists the codes")},
    {kRulesHint, QT_TRANSLATE_NOOP("Hints", "Check > Rules lists all")},
    {"no-form-of-name",
     QT_TRANSLATE_NOOP("Hints", "choose one of the file types, which are {found}")},
    {"no-workform", QT_TRANSLATE_NOOP("Hints", "New Record lists all")},
    {"no-workform-but-near", QT_TRANSLATE_NOOP("Hints", "New Record lists all")},
};

// The form in which a coded field is changed.
struct Form {
    std::string_view tag;
    const char* text;
};
constexpr Form kForms[] = {
    {"LDR", QT_TRANSLATE_NOOP("Hints", "Ctrl+L lists the codes, in the form of the Leader")},
    {"006", QT_TRANSLATE_NOOP("Hints", "F6 lists the codes, in the form of the 006")},
    {"007", QT_TRANSLATE_NOOP("Hints", "F7 lists the codes, in the form of the 007")},
    {"008", QT_TRANSLATE_NOOP("Hints", "F8 lists the codes, in the form of the 008")},
};

std::string Translated(const char* text) {
    return QCoreApplication::translate("Hints", text).toStdString();
}

}  // namespace

std::string DeskHints::Hint(std::string_view id, const Place& place) const {
    if (id == kCodesHint) {
        const auto* form = std::ranges::find(kForms, place.Tag(), &Form::tag);
        return form == std::end(kForms) ? std::string() : Translated(form->text);
    }
    const auto* words = std::ranges::find(kWords, id, &Words::id);
    return words == std::end(kWords) ? std::string() : Translated(words->text);
}

}  // namespace quillory
