#include <quillory/cli/NewRecordArguments.h>
#include <quillory/faults/Errors.h>

namespace quillory {

void DeclareNewRecord(Arguments& command, NewRecordChoice& choice,
                      const std::string& workformText) {
    command.Option("-w,--workform", choice.workform, workformText);
    command.KeyValue("-s,--set", choice.sets, "PLACE=TEXT",
                     "What a record has: 245a=Title, 650=_0$aRivers, 008/22=j, language=eng");
}

NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice) {
    NewRecordOptions options{choice.workform, {}};
    for (const auto& [place, text] : choice.sets) {
        try {
            options.entries.push_back(ReadEntry(place, text));
        } catch (const EntryError& error) {
            throw UsageError(std::string("--set ") + error.what());
        }
    }
    return options;
}

}  // namespace quillory
