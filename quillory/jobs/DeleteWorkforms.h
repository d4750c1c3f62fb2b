#pragma once

#include <quillory/jobs/Reporter.h>

#include <string>
#include <vector>

namespace quillory {

// Deletes workforms of the user's, by name or ID: all of these or none. Throws FileError and
// UsageError.
Status DeleteWorkforms(const std::vector<std::string>& names, const Reporter& reporter);

}  // namespace quillory
