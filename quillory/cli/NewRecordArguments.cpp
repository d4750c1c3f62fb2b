#include <quillory/cli/NewRecordArguments.h>
#include <quillory/faults/Errors.h>

#include <CLI/CLI.hpp>

namespace quillory {
namespace {

std::vector<Entry> ReadSets(const std::vector<std::string>& sets) {
    std::vector<Entry> entries;
    for (const std::string& set : sets) {
        const std::size_t equals = set.find('=');
        if (equals == set.npos) throw UsageError("--set " + set + ": is no PLACE=TEXT");
        try {
            entries.push_back(ReadEntry(set.substr(0, equals), set.substr(equals + 1)));
        } catch (const EntryError& error) {
            throw UsageError(std::string("--set ") + error.what());
        }
    }
    return entries;
}

}  // namespace

void AddNewRecordOptions(CLI::App& command, NewRecordChoice& choice,
                         const std::string& workformHelp) {
    command.add_option("-w,--workform", choice.workform, workformHelp);
    command
        .add_option("-s,--set", choice.sets,
                    "What a record has: 245a=Title, 650=_0$aRivers, 008/22=j, language=eng")
        ->option_text("PLACE=TEXT")
        ->allow_extra_args(false);
}

NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice) {
    return {choice.workform, ReadSets(choice.sets)};
}

}  // namespace quillory
