#include <quillory/reports/WorkformPlaces.h>

namespace quillory {
namespace {

using zorby::CTemplate;

void Note(unsigned tag, std::string_view codes, CodesByTag& noted) {
    std::string& known = noted[tag];
    for (const char code : codes) {
        if (known.find(code) == known.npos) known += code;
    }
}

template <class List>
void NoteHelp(const List& list, CodesByTag& noted) {
    for (int i = 0; i < list.GetSize(); ++i) {
        const char code = list.GetAt(i)->GetCode();
        Note(list.GetAt(i)->GetTag(), {&code, 1}, noted);
    }
}

template <class List>
void NoteCodes(const List& list, CodesByTag& noted) {
    for (int i = 0; i < list.GetSize(); ++i) {
        Note(list.GetAt(i)->GetTag(), list.GetAt(i)->GetCodes(), noted);
    }
}

bool HasData(const CTemplate& workform, unsigned tag) {
    const zorby::CInfoAboutDefaultDataList& data = workform.GetDefaultData();
    for (int i = 0; i < data.GetSize(); ++i) {
        if (data.GetAt(i)->GetTag() == tag) return true;
    }
    return false;
}

}  // namespace

CodesByTag PlacesWithoutData(const CTemplate& workform) {
    CodesByTag noted;
    NoteHelp(workform.GetRules(), noted);
    NoteHelp(workform.GetReminders(), noted);
    NoteHelp(workform.GetExamples(), noted);
    NoteCodes(workform.GetPrompts(), noted);
    NoteCodes(workform.GetSubfieldPriorities(), noted);
    for (int i = 0; i < workform.GetFieldPriorities().GetSize(); ++i) {
        Note(workform.GetFieldPriorities().GetAt(i)->GetTag(), "", noted);
    }
    for (auto& [tag, codes] : noted) {
        std::erase_if(codes, [&workform, tag = tag](char code) {
            return workform.DefaultDataIncludes(tag, code) != 0;
        });
    }
    std::erase_if(noted, [&workform](const auto& place) {
        return place.second.empty() && HasData(workform, place.first);
    });
    return noted;
}

}  // namespace quillory
