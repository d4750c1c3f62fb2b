#pragma once

#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

struct WorkformSaveOptions {
    std::string name;                   // what it is to be called
    std::string from;                   // the workform that it begins as, by name or ID
    std::vector<std::string> settings;  // as in SetDefaultData
    bool force = false;                 // replaces a workform of the user's of that name
};

// Makes a workform of the user's from another. Throws FileError and UsageError.
Status SaveWorkform(const WorkformSaveOptions& options, const Reporter& reporter);

// Deletes workforms of the user's, by name or ID: all of these or none. Throws FileError and
// UsageError.
Status DeleteWorkforms(const std::vector<std::string>& names, const Reporter& reporter);

}  // namespace quillory
