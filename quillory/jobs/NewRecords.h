#pragma once

#include <quillory/cataloging/RecordMaker.h>
#include <quillory/jobs/WorkformCatalog.h>

#include <string>
#include <vector>

namespace quillory {

// What is said of new records beside their descriptions.
struct NewRecordOptions {
    std::string workform;
    std::vector<Entry> entries;  // they replace what a description says of the same places
    bool putsMarks = true;       // as in Draft
};

// A maker of records that are entered today. It loads settings, dictionaries and workforms; those
// of the user are in force as long as the object lives.
class NewRecords {
public:
    // Throws FileError.
    NewRecords(const NewRecordOptions& options, const Reporter& reporter);

    RecordMaker& Maker() { return maker_; }

private:
    WorkformCatalog workforms_;
    RecordMaker maker_;
};

// All of a file of descriptions, or of standard input ("-"). Throws FileError, also for an empty
// file, and for one of more bytes than --memory allows.
std::string ReadDescriptionFile(const std::string& path, const std::string& memory = {});

// Adds entries to a description. They replace what it says of the same places.
void AddEntries(const std::vector<Entry>& entries, Description& description);

}  // namespace quillory
