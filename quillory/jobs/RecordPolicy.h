#pragma once

#include <quillory/checks/Checker.h>

#include <string>

namespace quillory {

// What a job that checks records holds them to.
struct PolicyOptions {
    PolicyChoice policy;
    std::string userDefined;  // fields of the user's own; empty: those that the format leaves to
                              // libraries are free
};

// Puts settings, policy and dictionaries in force, and gives a checker of them. A SettingsKeeper
// made before puts the settings back. Throws FileError and UsageError.
Checker MakeChecker(const PolicyOptions& options, Charset charset);

}  // namespace quillory
