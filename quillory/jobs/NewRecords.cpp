#include <quillory/exchange/Input.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/NewRecords.h>
#include <quillory/jobs/Settings.h>
#include <zorby/platform/ClockPort.h>

#include <algorithm>

namespace quillory {
namespace {

WorkformCatalog LoadAll(const Reporter& reporter) {
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
    return WorkformCatalog(reporter);
}

// A workform that is not there, or damaged, is a fault of the description that names it.
zorby::TemplateHolder FindWorkform(const WorkformCatalog& workforms, const std::string& name) {
    try {
        return workforms.Get(workforms.Find(name).id);
    } catch (const FaultError& error) {
        if (!error.What()) throw;  // the whole store can't be read
        throw EntryError(error.What());
    }
}

// Takes away what a description says of the place that is set. A subfield is also taken out of the
// tables of its field.
void TakeAway(const Entry& set, std::vector<Entry>& entries) {
    std::erase_if(entries, [&set](const Entry& entry) { return entry.place == set.place; });
    if (set.kind != EntryKind::Subfield) return;
    const Place field = set.place.Field();
    for (Entry& entry : entries) {
        if (entry.place != field) continue;
        std::erase_if(entry.subfields, [&set](const SubfieldText& subfield) {
            return subfield.code == set.place.code;
        });
    }
}

}  // namespace

NewRecords::NewRecords(const NewRecordOptions& options, const Reporter& reporter)
    : workforms_(LoadAll(reporter)),
      maker_([this](const std::string& name) { return FindWorkform(workforms_, name); },
             LoadCodeLists, zorby::CurrentClockPort().LocalTime(),
             {options.putsMarks, LibraryCode()}) {}

std::string ReadDescriptionFile(const std::string& path, const std::string& memory) {
    Input input(path);
    std::string text = memory.empty() ? ReadWhole(input)
                                      : ReadWhole(input, ParseByteSize("--memory", memory),
                                                  "--memory allows more");
    if (text.empty()) throw FileError(path, {FaultCode::kEmptyFile});
    return text;
}

void AddEntries(const std::vector<Entry>& entries, Description& description) {
    for (const Entry& entry : entries) TakeAway(entry, description.entries);
    description.entries.insert(description.entries.end(), entries.begin(), entries.end());
}

}  // namespace quillory
