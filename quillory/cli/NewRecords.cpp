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

}  // namespace

NewRecords::NewRecords(const Reporter& reporter)
    : workforms_(LoadAll(reporter)),
      maker_([this](const std::string& name) { return FindWorkform(workforms_, name); },
             LoadCodeLists, zorby::CurrentClockPort().LocalTime()) {}

void AddNewRecordOptions(CLI::App& command, NewRecordOptions& options) {
    command.add_option("-w,--workform", options.workform,
                       "The workform of records that name none, by its name or ID");
    command
        .add_option("-s,--set", options.sets,
                    "What a record has: 245a=Title, 650=_0$aRivers, 008/22=j, language=eng")
        ->option_text("PLACE=TEXT ...")
        ->take_all();
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

void AddCommandLine(const NewRecordOptions& options, const std::vector<Entry>& sets,
                    Description& description) {
    if (description.workform.empty()) description.workform = options.workform;
    std::erase_if(description.entries, [&sets](const Entry& entry) {
        return std::ranges::find(sets, entry.place, &Entry::place) != sets.end();
    });
    description.entries.insert(description.entries.end(), sets.begin(), sets.end());
}

}  // namespace quillory
