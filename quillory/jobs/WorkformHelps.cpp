#include <quillory/cataloging/Questions.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformHelps.h>
#include <quillory/text/QmText.h>

#include <string_view>

namespace quillory {
namespace {

using zorby::CTemplate;

// The library's code has no sign for the end of a line.
std::string WorkformLines(std::string_view utf8) {
    std::string lines;
    while (!utf8.empty()) {
        const std::size_t end = utf8.find('\n');
        lines += WorkformText(std::string(utf8.substr(0, end)));
        if (end == utf8.npos) break;
        lines += '\n';
        utf8.remove_prefix(end + 1);
    }
    return lines;
}

// The texts of a kind, of which each workform has a list.
template <class List, class Add>
void CopyTexts(const List& from, const SubfieldHelps& except, Add add) {
    for (int i = 0; i < from.GetSize(); ++i) {
        const auto& text = *from.GetAt(i);
        if (!except.contains({text.GetTag(), text.GetCode()})) {
            add(text.GetTag(), text.GetCode(), text.GetText());
        }
    }
}

void CopyAllTexts(const CTemplate& from, const SubfieldHelps& except, CTemplate& workform) {
    CopyTexts(from.GetRules(), except, [&](unsigned tag, char code, const std::string& text) {
        workform.AddSubfieldRules(tag, code, text);
    });
    CopyTexts(from.GetReminders(), except, [&](unsigned tag, char code, const std::string& text) {
        workform.AddSubfieldReminders(tag, code, text);
    });
    CopyTexts(from.GetExamples(), except, [&](unsigned tag, char code, const std::string& text) {
        workform.AddSubfieldExamples(tag, code, text);
    });
}

void CopyPrompts(const CTemplate& from, const SubfieldHelps& except, CTemplate& workform) {
    const auto speaksOf = [&except](unsigned tag) {
        const auto first = except.lower_bound({tag, '\0'});
        return first != except.end() && first->first.tag == tag;
    };
    for (int i = 0; i < from.GetPrompts().GetSize(); ++i) {
        const auto& prompt = *from.GetPrompts().GetAt(i);
        if (!speaksOf(prompt.GetTag())) {
            workform.AddSubfieldPrompt(prompt.GetTag(), prompt.GetCodes());
        }
    }
    for (int i = 0; i < from.GetFieldPriorities().GetSize(); ++i) {
        const auto& field = *from.GetFieldPriorities().GetAt(i);
        if (!speaksOf(field.GetTag())) {
            workform.AddFieldPriority(field.GetTag(), field.GetPriority());
        }
    }
}

// What can't be changed here comes along.
void CopyTheRest(const CTemplate& from, CTemplate& workform) {
    for (int i = 0; i < from.GetSubfieldPriorities().GetSize(); ++i) {
        const auto& subfields = *from.GetSubfieldPriorities().GetAt(i);
        workform.AddSubfieldPriority(subfields.GetTag(), subfields.GetCodes(),
                                     subfields.GetPriority());
    }
    for (int i = 0; i < from.GetIndicatorDefaults().GetSize(); ++i) {
        const auto& values = *from.GetIndicatorDefaults().GetAt(i);
        workform.AddIndicatorDefault(values.GetTag(), values.GetIndicator(1),
                                     values.GetIndicator(2));
    }
    for (int i = 0; i < from.GetIndicatorNames().GetSize(); ++i) {
        const auto& name = *from.GetIndicatorNames().GetAt(i);
        workform.AddIndicatorName(name.GetTag(), name.GetWhich(), name.GetName());
    }
    for (int i = 0; i < from.GetIndicatorExplanations().GetSize(); ++i) {
        const auto& words = *from.GetIndicatorExplanations().GetAt(i);
        workform.AddIndicatorExpl(words.GetTag(), words.GetWhich(), words.GetExplanation());
    }
}

// The subfields of a tag that are asked for once these are in force.
std::string AskedCodes(unsigned tag, const SubfieldHelps& helps, const CTemplate& before) {
    std::string codes;
    if (before.FieldPriority(tag) != 0) before.SubfieldPrompt(tag, codes);
    for (const auto& [subfield, help] : helps) {
        if (subfield.tag != tag) continue;
        const std::size_t at = codes.find(subfield.code);
        if (help.isAsked && at == codes.npos) codes += subfield.code;
        if (!help.isAsked && at != codes.npos) codes.erase(at, 1);
    }
    return codes;
}

void AddTexts(const SubfieldOfTag& subfield, const SubfieldHelp& help, CTemplate& workform) {
    const auto [tag, code] = subfield;
    workform.AddSubfieldRules(tag, code, WorkformLines(help.rules));
    workform.AddSubfieldReminders(tag, code, WorkformLines(help.reminder));
    workform.AddSubfieldExamples(tag, code, WorkformLines(help.examples));
}

}  // namespace

SubfieldHelp HelpOf(const SubfieldOfTag& subfield, const CTemplate& workform) {
    const Place place = Place::OfField(subfield.tag).Subfield(subfield.code);
    std::string rules;
    std::string reminder;
    std::string examples;
    workform.SubfieldRules(subfield.tag, subfield.code, rules);
    workform.SubfieldReminders(subfield.tag, subfield.code, reminder);
    workform.SubfieldExamples(subfield.tag, subfield.code, examples);
    return {IsAsked(workform, place), QmLinesToUtf8(rules), QmLinesToUtf8(reminder),
            QmLinesToUtf8(examples)};
}

void CopyHelps(const CTemplate& from, const SubfieldHelps& except, CTemplate& workform) {
    if (from.IsBaseTemplate()) return;
    CopyPrompts(from, except, workform);
    CopyAllTexts(from, except, workform);
    CopyTheRest(from, workform);
}

void AddHelps(const SubfieldHelps& helps, const CTemplate& before, CTemplate& workform) {
    unsigned last = 0;
    for (const auto& [subfield, help] : helps) {
        AddTexts(subfield, help, workform);
        if (subfield.tag == last) continue;
        last = subfield.tag;
        const std::string codes = AskedCodes(last, helps, before);
        workform.AddSubfieldPrompt(last, codes);
        workform.AddFieldPriority(last, codes.empty() ? before.FieldPriority(last) : 1);
    }
}

}  // namespace quillory
