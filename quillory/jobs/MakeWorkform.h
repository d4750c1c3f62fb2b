#pragma once

#include <quillory/cataloging/Entry.h>
#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

struct MakeWorkformOptions {
    std::string name;          // what it is to be called
    std::string from;          // the workform that it begins as, by name or ID
    std::vector<Entry> texts;  // that new records begin with, each of one subfield
    bool force = false;        // replaces a workform of the user's of that name
};

// Makes a workform of the user's from another, and saves it. Throws FileError and UsageError.
Status MakeWorkform(const MakeWorkformOptions& options, const Reporter& reporter);

}  // namespace quillory
