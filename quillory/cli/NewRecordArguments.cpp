#include <quillory/cli/NewRecordArguments.h>
#include <quillory/cli/OfferedNames.h>

namespace quillory {

void DeclareNewRecord(Arguments& command, NewRecordChoice& choice,
                      const std::string& workformText) {
    command.Option("-w,--workform", choice.workform, workformText).OffersNow(OfferedWorkforms);
    command.KeyValue("-s,--set", choice.sets, "PLACE=TEXT",
                     "What a record has: 245a=Title, 650=_0$aRivers, 008/22=j, language=eng");
    command.Flag("--no-punctuation", choice.noPunctuation,
                 "Leave out the marks of the ISBD between subfields and at the end of fields");
}

NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice) {
    return {choice.workform, EntriesOf(choice.sets), !choice.noPunctuation};
}

std::vector<Entry> EntriesOf(const PlacesAndTexts& sets) {
    std::vector<Entry> entries;
    entries.reserve(sets.size());
    for (const auto& [place, text] : sets) entries.push_back(ReadEntry(place, text));
    return entries;
}

}  // namespace quillory
