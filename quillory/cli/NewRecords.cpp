#include <quillory/cli/Library.h>
#include <quillory/cli/NewRecords.h>
#include <quillory/exchange/Input.h>
#include <zorby/platform/ClockPort.h>

#include <CLI/CLI.hpp>

#include <algorithm>

namespace quillory {
namespace {

// The library tells what it misses.
const Reporter& LoadAll(const Reporter& reporter) {
    LoadSettings();
    if (!LoadDictionaries("") || !LoadWorkforms()) {
        throw FileError("without these data no record can be made");
    }
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

void AddNewRecordOptions(CLI::App& command, NewRecordOptions& options,
                         const std::string& workformHelp) {
    command.add_option("-w,--workform", options.workform, workformHelp);
    command
        .add_option("-s,--set", options.sets,
                    "What a record has: 245a=Title, 650=_0$aRivers, 008/22=j, language=eng")
        ->option_text("PLACE=TEXT")
        ->allow_extra_args(false);
}

std::vector<Entry> ReadSets(const std::vector<std::string>& sets) {
    std::vector<Entry> entries;
    for (const std::string& set : sets) {
        const std::size_t equals = set.find('=');
        if (equals == set.npos) throw FileError("--set " + set + ": is no PLACE=TEXT");
        try {
            entries.push_back(ReadEntry(set.substr(0, equals), set.substr(equals + 1)));
        } catch (const EntryError& error) {
            throw FileError(std::string("--set ") + error.what());
        }
    }
    return entries;
}

void AddCommandLine(const std::vector<Entry>& sets, Description& description) {
    for (const Entry& set : sets) TakeAway(set, description.entries);
    description.entries.insert(description.entries.end(), sets.begin(), sets.end());
}

}  // namespace quillory
