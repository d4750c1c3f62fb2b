#pragma once

#include <quillory/checks/Checker.h>

#include <optional>
#include <string>

namespace quillory {

// What a job that checks records holds them to.
struct PolicyOptions {
    PolicyChoice policy;
    std::string userDefined;  // fields of the user's own; empty: those that the format leaves to
                              // libraries are free
};

// Puts settings, policy and dictionaries in force, and gives a checker of them. Nothing if a
// dictionary is not there, which the user has been told. Throws FileError and UsageError.
std::optional<Checker> MakeChecker(const PolicyOptions& options, Charset charset);

}  // namespace quillory
