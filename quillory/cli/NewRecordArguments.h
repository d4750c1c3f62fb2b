#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/NewRecords.h>

#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What the command line says of new records.
struct NewRecordChoice {
    std::string workform;
    std::vector<std::pair<std::string, std::string>> sets;  // "245a" and "Title"
};

void DeclareNewRecord(Arguments& command, NewRecordChoice& choice, const std::string& workformText);

// Throws UsageError for a --set that can't be read.
NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice);

}  // namespace quillory
