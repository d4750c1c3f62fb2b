#pragma once

#include <quillory/cataloging/RecordMaker.h>
#include <quillory/jobs/WorkformCatalog.h>

#include <string>
#include <vector>

namespace quillory {

// What is said of new records beside their descriptions.
struct NewRecordOptions {
    std::string workform;
    std::vector<Entry> entries;  // in the place of what a description says of the same
};

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

// Adds entries to a description, in the place of what it says of the same.
void AddEntries(const std::vector<Entry>& entries, Description& description);

}  // namespace quillory
