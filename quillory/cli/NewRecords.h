#pragma once

#include <quillory/cataloging/RecordMaker.h>
#include <quillory/cli/WorkformCatalog.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace quillory {

// What the command line says of new records.
struct NewRecordOptions {
    std::string workform;
    std::vector<std::string> sets;  // "245a=Title"
};

void AddNewRecordOptions(CLI::App& command, NewRecordOptions& options,
                         const std::string& workformHelp);

// What new records are made from: settings, dictionaries and workforms, put in force as long as the
// object lives, and a maker of records of today. Throws FileError.
class NewRecords {
public:
    explicit NewRecords(const Reporter& reporter);

    RecordMaker& Maker() { return maker_; }

private:
    WorkformCatalog workforms_;
    RecordMaker maker_;
};

// The entries of --set. Throws FileError for one that is none.
std::vector<Entry> ReadSets(const std::vector<std::string>& sets);

// Adds what the command line says, in the place of what the description says of the same.
void AddCommandLine(const std::vector<Entry>& sets, Description& description);

}  // namespace quillory
