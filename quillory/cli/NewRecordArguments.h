#pragma once

#include <quillory/jobs/NewRecords.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace quillory {

// What the command line says of new records.
struct NewRecordChoice {
    std::string workform;
    std::vector<std::string> sets;  // "245a=Title"
};

void AddNewRecordOptions(CLI::App& command, NewRecordChoice& choice,
                         const std::string& workformHelp);

// Throws UsageError for a --set that can't be read.
NewRecordOptions NewRecordOptionsOf(const NewRecordChoice& choice);

}  // namespace quillory
