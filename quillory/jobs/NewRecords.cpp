#include <quillory/exchange/Input.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/NewRecords.h>
#include <zorby/platform/ClockPort.h>

#include <algorithm>

namespace quillory {
namespace {

const Reporter& LoadAll(const Reporter& reporter) {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    return reporter;
}

zorby::TemplateHolder FindWorkform(const WorkformCatalog& workforms, const std::string& name) {
    try {
        return workforms.Get(workforms.Find(name).id);
    } catch (const FileError& error) {
        throw EntryError("workform", error.what());
    }
}

bool IsSamePlace(const Entry& a, const Entry& b) {
    return a.kind == b.kind && a.tag == b.tag && a.occurrence == b.occurrence &&
           a.first == b.first && a.last == b.last;
}

// What was said of the place that is set; of one subfield in a table of several, only that.
void TakeAway(const Entry& set, std::vector<Entry>& entries) {
    const bool isSubfield = set.kind == EntryKind::Subfield && set.occurrence == 0;
    for (Entry& entry : entries) {
        const bool hasSubfields =
            entry.kind == EntryKind::Subfield || entry.kind == EntryKind::Field;
        if (isSubfield && hasSubfields && entry.tag == set.tag && entry.occurrence == 0) {
            std::erase_if(entry.subfields, [&set](const SubfieldText& subfield) {
                return subfield.code == set.subfields.front().code;
            });
        }
    }
    std::erase_if(entries, [&](const Entry& entry) {
        const bool isEmpty = entry.kind == EntryKind::Subfield && entry.subfields.empty();
        return isEmpty || (set.kind != EntryKind::Subfield && IsSamePlace(set, entry));
    });
}

}  // namespace

NewRecords::NewRecords(const Reporter& reporter)
    : workforms_(LoadAll(reporter)),
      maker_([this](const std::string& name) { return FindWorkform(workforms_, name); },
             LoadCodeLists, zorby::CurrentClockPort().LocalTime()) {}

void AddEntries(const std::vector<Entry>& entries, Description& description) {
    for (const Entry& entry : entries) TakeAway(entry, description.entries);
    description.entries.insert(description.entries.end(), entries.begin(), entries.end());
}

}  // namespace quillory
