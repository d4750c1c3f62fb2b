#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/NewRecords.h>

#include <string>
#include <utility>
#include <vector>

namespace quillory {

// "245a" and "Title" of --set 245a=Title.
using PlacesAndTexts = std::vector<std::pair<std::string, std::string>>;

// Throws UsageError for what is not a place, and for text that a record can't hold.
std::vector<Entry> EntriesOf(const PlacesAndTexts& sets);

// What the command line says of new records.
struct NewRecordChoice {
    std::string workform;
    PlacesAndTexts sets;
    bool noPunctuation = false;
};

void DeclareNewRecord(Arguments& command, NewRecordChoice& choice, const std::string& workformText);

// Throws UsageError as EntriesOf does.
NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice);

}  // namespace quillory
